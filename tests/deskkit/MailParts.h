#pragma once

#include <QByteArray>
#include <QList>

// A mail as its receiver finds it, taken apart by nothing but the rules of the format, so that it does not
// stand on the library that wrote it.
namespace ovalia::deskkit {

struct MailPart {
  QByteArray head;     // unfolded lines
  QByteArray name;     // of an attachment, decoded
  QByteArray content;  // decoded
};

// The parts of a "multipart/mixed" message with CRLF lines; fails the test where it is not one.
QList<MailPart> partsOf(const QByteArray& message);

// The value of a field of a head, its encoded words decoded; empty where there is none.
QByteArray headField(const QByteArray& head, const QByteArray& field);

// The head of a message, unfolded.
QByteArray headOf(const QByteArray& message);

}  // namespace ovalia::deskkit
