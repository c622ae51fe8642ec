#include "desktop/HtmlText.h"

#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

namespace ovalia::desktop {

namespace {

// No image or style is looked for.
class UnconnectedDocument : public QTextDocument {
 protected:
  QVariant loadResource(int, const QUrl&) override { return QByteArray(); }
};

QRegularExpression anyCase(const QString& pattern) {
  return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

// How deep elements stand in elements, those aside that need no end.
int depthOf(const QString& html) {
  static const QRegularExpression mark =
      anyCase(QStringLiteral("<(/?)(?!(?:p|li|t[drh]|br|hr|img|meta|link|input|col|dt|dd)\\b)[a-z][^<>]*>"));
  int depth = 0, most = 0;
  for (auto marks = mark.globalMatch(html); marks.hasNext();) {
    const bool ends = marks.next().capturedLength(1) > 0;
    depth = std::max(depth + (ends ? -1 : 1), 0);
    most = std::max(most, depth);
  }
  return most;
}

// The lines alone, and what is no text anywhere.
QString flat(QString html) {
  static const QRegularExpression line =
      anyCase(QStringLiteral("<(?:p|div|br|tr|li|table|blockquote|h[1-6])\\b[^<>]*>"));
  static const QRegularExpression other =
      anyCase(QStringLiteral("<(?!br>|/?(?:style|script|title)\\b)/?[a-z][^<>]*>"));
  return html.replace(line, QStringLiteral("<br>")).remove(other);
}

}  // namespace

QString textOfHtml(const QString& html) {
  // A head that nothing ends would swallow the text; what belongs into one is no text anywhere.
  static const QRegularExpression head = anyCase(QStringLiteral("</?head\\b[^<>]*>"));
  // The toolkit's time grows with the square of the depth, which a mail can make as great as it likes.
  constexpr int deepestHtml = 500;
  const QString text = QString(html).remove(head);
  UnconnectedDocument document;
  document.setHtml(depthOf(text) > deepestHtml ? flat(text) : text);
  // Where an image stood there is nothing to read.
  return document.toPlainText().remove(QChar(QChar::ObjectReplacementCharacter));
}

}  // namespace ovalia::desktop
