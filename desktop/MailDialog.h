#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/MailDelivery.h"

namespace ovalia::desktop {

// A mail to be looked through, filled in and sent to a server. It closes when the server has taken it; when
// it has not the dialog says why and stays, and the mail can be sent again or kept as a file. Attachments are
// left out by their boxes; one that is not there cannot be sent. Control+Enter sends. Escape closes, after a
// question where something was written; while the mail is on its way it calls it back.
class MailDialog : public QDialog {
 public:
  MailDialog(const MailMessage& draft, SmtpServer server, QWidget* owner);

  bool sent() const { return sent_; }

  void done(int result) override;

 private:
  void build();
  void fill(const MailMessage& draft);
  void addAttachment(const MailAttachment& attached);
  MailMessage message() const;
  bool written() const;

  void send();
  void keep();
  bool addressed();
  void setSending(bool sending);
  void say(TextView text);

  const Text from_;
  const SmtpServer server_;
  std::vector<MailAttachment> attachments_;
  QLineEdit *to_ = nullptr, *subject_ = nullptr;
  QPlainTextEdit* text_ = nullptr;
  QListWidget* list_ = nullptr;
  QLabel* message_ = nullptr;
  QPushButton *send_ = nullptr, *keep_ = nullptr, *cancel_ = nullptr;
  bool sending_ = false, calledBack_ = false, sent_ = false;
};

}  // namespace ovalia::desktop
