#include "desktop/SmtpClient.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace ovalia::desktop {

namespace {

struct Source {
  const char* at;
  std::size_t left;
};

std::size_t feed(char* buffer, std::size_t size, std::size_t count, void* data) {
  auto& source = *static_cast<Source*>(data);
  const std::size_t piece = std::min(size * count, source.left);
  std::memcpy(buffer, source.at, piece);
  source.at += piece;
  source.left -= piece;
  return piece;
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
});

Text reasonOf(CURLcode code, const char* detail) {
  for (const ReasonRow& row : reasons)
    if (row.code == code) return Text(row.text);
  return fromUtf8(detail[0] ? detail : curl_easy_strerror(code));
}

void startLibrary() {
  static const bool started = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  (void)started;
}

}  // namespace

Text sendMail(const SmtpServer& server, const Text& from, const Text& to, const QByteArray& message) {
  startLibrary();
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
  if (!curl) return u"no hay memoria suficiente.";
  const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> recipients(
      curl_slist_append(nullptr, bare(to).c_str()), curl_slist_free_all);
  std::array<char, CURL_ERROR_SIZE> reason{};
  Source source{message.constData(), static_cast<std::size_t>(message.size())};

  CURL* handle = curl.get();
  curl_easy_setopt(handle, CURLOPT_URL, toUtf8(server.url).c_str());
  curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  curl_easy_setopt(handle, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
  curl_easy_setopt(handle, CURLOPT_MAIL_FROM, bare(from).c_str());
  curl_easy_setopt(handle, CURLOPT_MAIL_RCPT, recipients.get());
  curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(handle, CURLOPT_READFUNCTION, feed);
  curl_easy_setopt(handle, CURLOPT_READDATA, &source);
  curl_easy_setopt(handle, CURLOPT_TIMEOUT, static_cast<long>(server.patience.count()));
  curl_easy_setopt(handle, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(server.patience.count()));
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle, CURLOPT_ERRORBUFFER, reason.data());

  const CURLcode result = curl_easy_perform(handle);
  if (result == CURLE_OK) return {};
  return reasonOf(result, reason.data());
}

}  // namespace ovalia::desktop
