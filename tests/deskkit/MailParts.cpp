#include "tests/deskkit/MailParts.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace ovalia::deskkit {

namespace {

QByteArray fromQuotedPrintable(QByteArray text) {
  text.replace("=\r\n", "");
  return QByteArray::fromPercentEncoding(text, '=');
}

// In UTF-8, from the charset of that name.
QByteArray fromCharset(const QByteArray& text, const QString& charset) {
  if (charset.toLower() == QStringLiteral("iso-8859-1")) return QString::fromLatin1(text).toUtf8();
  EXPECT_EQ(charset.toLower().toStdString(), "utf-8");
  return text;
}

QByteArray decodedWord(const QRegularExpressionMatch& word) {
  const QByteArray text = word.captured(3).toLatin1();
  const bool base64 = word.captured(2).toUpper() == QStringLiteral("B");
  return fromCharset(base64 ? QByteArray::fromBase64(text)
                            : QByteArray::fromPercentEncoding(QByteArray(text).replace('_', ' '), '='),
                     word.captured(1));
}

// The blank between two encoded words is not part of the text.
QByteArray decoded(const QByteArray& value) {
  static const QRegularExpression words(
      QStringLiteral("=\\?([a-z0-9-]+)\\?([bq])\\?([^?]*)\\?=(?:\\s+(?==\\?))?"),
      QRegularExpression::CaseInsensitiveOption);
  const QString text = QString::fromUtf8(value);
  QByteArray made;
  qsizetype at = 0;
  for (const auto& word : words.globalMatch(text)) {
    made += text.mid(at, word.capturedStart() - at).toUtf8() + decodedWord(word);
    at = word.capturedEnd();
  }
  return made + text.mid(at).toUtf8();
}

QString firstGroup(const QString& text, const char* pattern) {
  const QRegularExpression expression(QLatin1String(pattern), QRegularExpression::CaseInsensitiveOption);
  return expression.match(text).captured(1);
}

// A name in the extended form may go on in numbered pieces; the charset stands before the first.
QByteArray fileName(const QByteArray& head) {
  const QString disposition = QString::fromUtf8(headField(head, "Content-Disposition"));
  QString whole = firstGroup(disposition, "filename\\*=([^;\\s]*)");
  for (int i = 0; whole.isEmpty() || i > 0; ++i) {
    const QByteArray pattern = "filename\\*" + QByteArray::number(i) + "\\*?=\"?([^;\"\\s]*)";
    const QString piece = firstGroup(disposition, pattern.constData());
    if (piece.isEmpty()) break;
    whole += piece;
  }
  if (const QStringList extended = whole.split(u'\''); extended.size() == 3)
    return fromCharset(QByteArray::fromPercentEncoding(extended[2].toUtf8()), extended[0]);
  const QString quoted = firstGroup(disposition, "filename=\"([^\"]*)\"");
  return (quoted.isEmpty() ? firstGroup(disposition, "filename=([^;\\s]*)") : quoted).toUtf8();
}

MailPart part(const QByteArray& text) {
  const qsizetype end = text.indexOf("\r\n\r\n");
  MailPart made;
  made.head = headOf(text);
  made.name = fileName(made.head);
  made.content = text.mid(end + 4);
  const QByteArray encoding = headField(made.head, "Content-Transfer-Encoding").toLower();
  if (encoding == "base64") made.content = QByteArray::fromBase64(made.content);
  if (encoding == "quoted-printable") made.content = fromQuotedPrintable(made.content);
  return made;
}

}  // namespace

QByteArray headOf(const QByteArray& message) {
  QByteArray head = message.left(message.indexOf("\r\n\r\n"));
  return head.replace("\r\n ", " ").replace("\r\n\t", " ");
}

QByteArray headField(const QByteArray& head, const QByteArray& field) {
  for (const QByteArray& line : head.split('\n'))
    if (line.toLower().startsWith(field.toLower() + ':'))
      return decoded(line.mid(field.size() + 1).trimmed());
  return {};
}

QList<MailPart> partsOf(const QByteArray& message) {
  const QString type = QString::fromUtf8(headField(headOf(message), "Content-Type"));
  const QByteArray boundary = firstGroup(type, "^multipart/mixed;.*boundary=\"?([^\";]*)").toUtf8();
  if (boundary.isEmpty()) ADD_FAILURE() << "no parts: " << type.toStdString();
  QList<MailPart> parts;
  const QByteArray mark = "\r\n--" + boundary;
  qsizetype from = message.indexOf(mark);
  while (from >= 0 && message.mid(from + mark.size(), 2) != "--") {
    from += mark.size() + 2;
    const qsizetype to = message.indexOf(mark, from);
    if (to < 0) ADD_FAILURE() << "the last part has no end";
    parts += part(message.mid(from, to < 0 ? -1 : to - from));
    from = to;
  }
  return parts;
}

}  // namespace ovalia::deskkit
