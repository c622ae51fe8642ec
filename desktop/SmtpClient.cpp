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

void startLibrary() {
  static const bool started = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  (void)started;
}

}  // namespace

Text sendMail(const SmtpServer& server, const Text& from, const Text& to, const QByteArray& message) {
  startLibrary();
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
  if (!curl) return u"out of memory";
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
  return fromUtf8(reason[0] ? reason.data() : curl_easy_strerror(result));
}

}  // namespace ovalia::desktop
