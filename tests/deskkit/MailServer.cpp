#include "tests/deskkit/MailServer.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ovalia::deskkit {

MailServer::MailServer(Manner manner) : manner_(manner) {
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address);
  listen(listener_, 1);
  socklen_t size = sizeof address;
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { talk(); });
}

MailServer::~MailServer() {
  finish();
  close(listener_);
}

void MailServer::finish() {
  finishing_ = true;
  shutdown(listener_, SHUT_RDWR);
  if (thread_.joinable()) thread_.join();
}

Text MailServer::url() const { return u"smtp://127.0.0.1:" + toText(port_); }

bool MailServer::readLine(std::string& line) {
  for (;;) {
    if (const auto end = heard_.find('\n', at_); end != std::string::npos) {
      line = heard_.substr(at_, end + 1 - at_);
      at_ = end + 1;
      return true;
    }
    heard_.erase(0, at_);
    at_ = 0;
    char piece[65536];
    const auto size = recv(client_, piece, sizeof piece, 0);
    if (size <= 0) return false;
    heard_.append(piece, static_cast<std::size_t>(size));
  }
}

void MailServer::say(const std::string& reply) {
  (void)!send(client_, (reply + "\r\n").data(), reply.size() + 2, MSG_NOSIGNAL);
}

void MailServer::talk() {
  client_ = accept(listener_, nullptr, nullptr);
  if (client_ < 0) return;
  std::string line;
  if (manner_ == Silent)
    while (readLine(line)) continue;
  else
    converse();
  close(client_);
}

void MailServer::converse() {
  say(manner_ == RefusesConversation ? "554 no service here" : "220 prueba");
  std::string line;
  while (readLine(line)) {
    commands += line;
    if (!answer(line)) return;
  }
}

bool MailServer::answer(const std::string& line) {
  if (line.starts_with("QUIT")) {
    say("221 bye");
    return false;
  }
  if (line.starts_with("DATA") && manner_ != RefusesData) {
    say("354 go on");
    return take();
  }
  if (line.starts_with("EHLO") && manner_ == RefusesSize)
    say("250-prueba\r\n250 SIZE 1000");
  else if (line.starts_with("DATA"))
    say("451 come back later");
  else if (line.starts_with("MAIL") && manner_ == RefusesSender)
    say("530 authentication required");
  else if (line.starts_with("RCPT") && refusesRecipient())
    say("550 no such user here");
  else if (line.starts_with("MAIL") && manner_ == RefusesSize)
    say("552 message size exceeds the limit");
  else
    say("250 good");
  return true;
}

bool MailServer::refusesRecipient() {
  ++recipients_;
  return manner_ == RefusesRecipient || (manner_ == RefusesSecondRecipient && recipients_ == 2);
}

bool MailServer::take() {
  std::string line;
  if (manner_ == StopsListening) {
    // That the client has gone cannot be heard behind a message that stands there.
    while (!finishing_) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return false;
  }
  while (readLine(line) && line != ".\r\n") {
    message += line.starts_with('.') ? line.substr(1) : line;
    if (manner_ == Drops) return false;
  }
  if (manner_ == SilentAtTheEnd)
    while (readLine(line)) continue;
  say(manner_ == RefusesMessage ? "554 looks like nonsense" : "250 taken");
  return true;
}

}  // namespace ovalia::deskkit
