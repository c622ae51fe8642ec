#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "platform/Text.h"

namespace ovalia::deskkit {

// A mail server of one conversation, on a port of this machine's own.
class MailServer {
 public:
  enum Manner {
    Accepts,
    RefusesConversation,  // in place of a greeting
    RefusesSender,
    RefusesRecipient,
    RefusesSecondRecipient,
    RefusesData,
    RefusesMessage,  // when it has all of it
    RefusesSize,     // takes no more than 1,000 bytes, and says so
    Silent,
    SilentAtTheEnd,  // takes the message and does not say whether it has it
    StopsListening,  // lets the message stand before its door
    Drops,           // in the middle of the message
  };

  explicit MailServer(Manner manner);
  ~MailServer();
  MailServer(const MailServer&) = delete;
  MailServer& operator=(const MailServer&) = delete;

  // Waits until the client has gone; for one that has not come it waits no longer.
  void finish();
  Text url() const;

  // To be read when it has finished. Lines end in "\r\n" in the message, which is what the client meant: the
  // points that guard lines are gone.
  std::string commands, message;

 private:
  bool readLine(std::string& line);
  void say(const std::string& reply);
  void talk();
  void converse();
  bool answer(const std::string& line);  // whether the conversation goes on
  bool refusesRecipient();               // the one whose turn it is
  bool take();

  Manner manner_;
  int recipients_ = 0;
  std::atomic<bool> finishing_ = false;
  int listener_, client_ = -1;
  int port_ = 0;
  std::string heard_;
  std::size_t at_ = 0;
  std::thread thread_;
};

}  // namespace ovalia::deskkit
