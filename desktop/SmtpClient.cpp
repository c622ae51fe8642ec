#include "desktop/SmtpClient.h"

#include <curl/curl.h>

#include <QFileDevice>
#include <algorithm>
#include <array>
#include <atomic>
#include <future>
#include <memory>
#include <string_view>

namespace ovalia::desktop {

namespace {

constexpr auto moment = std::chrono::milliseconds(20);

// What the conversation works with; the caller's thread only sets `givenUp`.
struct Conversation {
  QFileDevice& message;
  std::string lastReply = {};
  std::atomic<bool> givenUp = false;
};

std::size_t feed(char* buffer, std::size_t size, std::size_t count, void* data) {
  const qint64 read =
      static_cast<Conversation*>(data)->message.read(buffer, static_cast<qint64>(size * count));
  return read < 0 ? CURL_READFUNC_ABORT : static_cast<std::size_t>(read);
}

std::size_t hear(char* line, std::size_t size, std::size_t count, void* data) {
  const std::string_view reply(line, size * count);
  // The farewell comes after every refusal.
  if (!reply.starts_with("221")) static_cast<Conversation*>(data)->lastReply = reply;
  return size * count;
}

int goOn(void* data, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  return static_cast<Conversation*>(data)->givenUp;
}

// An address alone: nothing that could end the line it is sent in.
std::string bare(const Text& address) {
  std::string plain = toUtf8(address);
  std::erase_if(plain, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '<' || c == '>'; });
  return "<" + plain + ">";
}

// The usual reasons in the user's language; the library knows more, in its own.
struct ReasonRow {
  CURLcode code;
  TextView text;
};
constexpr auto reasons = std::to_array<ReasonRow>({
    {CURLE_URL_MALFORMAT, u"la dirección del servidor no está bien escrita."},
    {CURLE_UNSUPPORTED_PROTOCOL, u"la dirección del servidor debe empezar por smtp:// o smtps://."},
    {CURLE_COULDNT_RESOLVE_HOST, u"no se encuentra el servidor."},
    {CURLE_COULDNT_CONNECT, u"no se puede conectar con el servidor."},
    {CURLE_OPERATION_TIMEDOUT, u"el servidor no responde."},
    {CURLE_LOGIN_DENIED, u"el servidor no acepta el usuario o la contraseña."},
    {CURLE_PEER_FAILED_VERIFICATION, u"el certificado del servidor no es de fiar."},
    {CURLE_SSL_CONNECT_ERROR, u"no se puede cifrar la conexión con el servidor."},
    {CURLE_SEND_ERROR, u"el servidor no acepta al remitente o al destinatario, o ha cortado la conexión."},
    {CURLE_RECV_ERROR, u"la conexión con el servidor se ha cortado."},
    {CURLE_WEIRD_SERVER_REPLY, u"el servidor rechaza el mensaje o ha cortado la conexión."},
    {CURLE_ABORTED_BY_CALLBACK, u"se ha cancelado el envío."},
    {CURLE_READ_ERROR, u"el mensaje no se puede leer."},
});

Text reasonOf(CURLcode code, const char* detail) {
  for (const ReasonRow& row : reasons)
    if (row.code == code) return Text(row.text);
  return u"la conversación con el servidor ha fallado: " +
         fromUtf8(detail[0] ? detail : curl_easy_strerror(code)) + u".";
}

// What the server said last, where that was a refusal: "550 no such user here".
Text refusal(std::string reply) {
  while (!reply.empty() && static_cast<unsigned char>(reply.back()) <= ' ') reply.pop_back();
  const bool refused = !reply.empty() && (reply[0] == '4' || reply[0] == '5');
  return refused ? u" (" + fromUtf8(reply) + u")" : Text();
}

void startLibrary() {
  static const bool started = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  (void)started;
}

using Curl = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using List = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

List listOf(const std::vector<Text>& to) {
  List recipients(nullptr, curl_slist_free_all);
  for (const Text& address : to)
    recipients.reset(curl_slist_append(recipients.release(), bare(address).c_str()));
  return recipients;
}

void setUp(CURL* handle, const SmtpServer& server, const std::string& from, Conversation& conversation) {
  const long patience = static_cast<long>(server.patience.count());
  curl_easy_setopt(handle, CURLOPT_URL, toUtf8(server.url).c_str());
  curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  curl_easy_setopt(handle, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
  curl_easy_setopt(handle, CURLOPT_MAIL_FROM, from.c_str());
  curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
  // A server with a limit refuses by the size, before all of it was sent.
  curl_easy_setopt(handle, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(conversation.message.size()));
  curl_easy_setopt(handle, CURLOPT_READFUNCTION, feed);
  curl_easy_setopt(handle, CURLOPT_READDATA, &conversation);
  curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, hear);
  curl_easy_setopt(handle, CURLOPT_HEADERDATA, &conversation);
  curl_easy_setopt(handle, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(handle, CURLOPT_XFERINFOFUNCTION, goOn);
  curl_easy_setopt(handle, CURLOPT_XFERINFODATA, &conversation);
  curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, patience);
  curl_easy_setopt(handle, CURLOPT_SERVER_RESPONSE_TIMEOUT, patience);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, patience);
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
}

Text converse(const SmtpServer& server, const Text& from, const std::vector<Text>& to,
              Conversation& conversation) {
  const Curl curl(curl_easy_init(), curl_easy_cleanup);
  if (!curl) return u"no hay memoria suficiente.";
  const List recipients = listOf(to);
  std::array<char, CURL_ERROR_SIZE> detail{};
  setUp(curl.get(), server, bare(from), conversation);
  curl_easy_setopt(curl.get(), CURLOPT_MAIL_RCPT, recipients.get());
  curl_easy_setopt(curl.get(), CURLOPT_ERRORBUFFER, detail.data());
  const CURLcode result = curl_easy_perform(curl.get());
  if (result == CURLE_OK) return {};
  return reasonOf(result, detail.data()) + refusal(conversation.lastReply);
}

}  // namespace

Text sendMail(const SmtpServer& server, const Text& from, const std::vector<Text>& to, QFileDevice& message,
              const Meanwhile& meanwhile) {
  startLibrary();
  message.seek(0);
  Conversation conversation{message};
  auto answer = std::async(std::launch::async, [&] { return converse(server, from, to, conversation); });
  while (answer.wait_for(moment) != std::future_status::ready)
    if (!meanwhile()) conversation.givenUp = true;
  return answer.get();
}

}  // namespace ovalia::desktop
