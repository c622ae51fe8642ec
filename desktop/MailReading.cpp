#include "desktop/MailReading.h"

#include <fcntl.h>

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <array>
#include <string_view>

#include "desktop/DiskFile.h"
#include "desktop/HtmlText.h"
#include "desktop/LeavingFile.h"
#include "desktop/Mime.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Regional.h"

namespace ovalia::desktop {

namespace {

constexpr int deepest = 50;  // levels of parts in parts

struct FreeOptions {
  void operator()(GMimeParserOptions* options) const { g_mime_parser_options_free(options); }
};

using Options = std::unique_ptr<GMimeParserOptions, FreeOptions>;

Options optionsWith(std::vector<const char*> charsets) {
  charsets.push_back(nullptr);
  Options options(g_mime_parser_options_new());
  g_mime_parser_options_set_fallback_charsets(options.get(), charsets.data());
  return options;
}

// What breaks the rules and holds letters as they are was written in one of these.
Options usualCharsets() { return optionsWith({"utf-8", "windows-1252"}); }

Text taken(char* text) {
  const Text made = text ? fromUtf8(text) : Text();
  g_free(text);
  return made;
}

// A title for one line: the line ends of a folded one are blanks.
Text oneLine(const Text& text) { return fromQt(toQt(text).simplified()); }

// Any line end becomes CRLF.
Text lines(const QString& text) {
  QString plain = text;
  plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  while (plain.endsWith(u'\n') || plain.endsWith(u' ')) plain.chop(1);
  return fromQt(plain.replace(u'\n', QStringLiteral("\r\n")));
}

bool isType(GMimeObject* part, const char* type, const char* subtype) {
  return g_mime_content_type_is_type(g_mime_object_get_content_type(part), type, subtype);
}

bool isAttached(GMimeObject* part) {
  const char* disposition = g_mime_object_get_disposition(part);
  const bool named = GMIME_IS_PART(part) && g_mime_part_get_filename(GMIME_PART(part));
  return named || (disposition && g_ascii_strcasecmp(disposition, "attachment") == 0);
}

bool isText(GMimeObject* part, const char* subtype) {
  return GMIME_IS_TEXT_PART(part) && isType(part, "text", subtype) && !isAttached(part);
}

std::string bytesOf(GMimeObject* part) {
  GMimeDataWrapper* content = g_mime_part_get_content(GMIME_PART(part));
  if (!content) return {};
  const Owned<GMimeStream> memory(g_mime_stream_mem_new());
  g_mime_data_wrapper_write_to_stream(content, memory.get());
  const GByteArray* bytes = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(memory.get()));
  std::string made(reinterpret_cast<const char*>(bytes->data), bytes->len);
  std::erase(made, '\0');
  return made;
}

// "" also for those that are named for want of one.
std::string charsetOf(GMimeObject* part, const std::string& bytes) {
  const char* named = g_mime_object_get_content_type_parameter(part, "charset");
  QString name = QString::fromLatin1(named);
  if (!named && isType(part, "text", "html")) {
    static const QRegularExpression meta(QStringLiteral("<meta\\s[^<>]*charset\\s*=\\s*[\"']?([\\w.:-]+)"),
                                         QRegularExpression::CaseInsensitiveOption);
    constexpr std::size_t head = 4096;
    name =
        meta.match(QString::fromLatin1(QByteArrayView(bytes).first(qsizetype(std::min(head, bytes.size())))))
            .captured(1);
  }
  name = name.toLower().replace(u'_', u'-');
  static const QStringList none{QStringLiteral("us-ascii"), QStringLiteral("ascii"),
                                QStringLiteral("x-unknown"), QStringLiteral("unknown-8bit")};
  if (none.contains(name)) return {};
  const bool western = name == QStringLiteral("iso-8859-1") || name == QStringLiteral("latin1");
  return western ? "windows-1252" : name.toStdString();
}

bool isKnown(const std::string& charset) {
  const iconv_t converter = g_mime_iconv_open("UTF-8", charset.c_str());
  if (converter == iconv_t(-1)) return false;
  g_mime_iconv_close(converter);
  return true;
}

QString textOf(GMimeObject* part) {
  const std::string bytes = bytesOf(part), charset = charsetOf(part, bytes);
  const auto options =
      !charset.empty() && isKnown(charset) ? optionsWith({charset.c_str()}) : usualCharsets();
  return toQt(taken(g_mime_utils_decode_8bit(options.get(), bytes.c_str(), bytes.size())));
}

// Collects what the parts of one mail hold.
class Reader {
 public:
  Reader(QString folder, ReadMail& mail) : folder_(std::move(folder)), mail_(mail) {}

  void read(GMimeObject* part, int level = 0) {
    if (!part || level > deepest) return;
    if (isType(part, "multipart", "alternative") && GMIME_IS_MULTIPART(part))
      readAlternative(GMIME_MULTIPART(part), level);
    else if (GMIME_IS_MULTIPART(part))
      readAll(GMIME_MULTIPART(part), level);
    else if (isText(part, "plain"))
      add(textOf(part));
    else if (isText(part, "html"))
      add(textOfHtml(textOf(part)));
    else
      attach(part);
  }

  Text text() const { return lines(text_); }

 private:
  void readAll(GMimeMultipart* parts, int level) {
    // Without the marks between them all parts are what stands before the first.
    const char* unmarked = g_mime_multipart_get_prologue(parts);
    if (g_mime_multipart_get_count(parts) == 0 && unmarked) add(toQt(fromUtf8(unmarked)));
    for (int i = 0; i < g_mime_multipart_get_count(parts); ++i)
      read(g_mime_multipart_get_part(parts, i), level + 1);
  }

  // The same text several times: once is enough, the plain one before the others. What is no text, an
  // invitation or the images of the one in HTML, is attached.
  void readAlternative(GMimeMultipart* parts, int level) {
    const QString before = std::exchange(text_, {});
    QString plain, other;
    for (int i = 0; i < g_mime_multipart_get_count(parts); ++i) {
      GMimeObject* part = g_mime_multipart_get_part(parts, i);
      read(part, level + 1);
      (isText(part, "plain") ? plain : other) += std::exchange(text_, {});
    }
    text_ = before;
    add(plain.trimmed().isEmpty() ? other : plain);
  }

  void add(const QString& text) {
    if (text.trimmed().isEmpty()) return;
    if (!text_.isEmpty()) text_ += QStringLiteral("\n\n");
    text_ += text;
  }

  void attach(GMimeObject* part) {
    const int number = static_cast<int>(mail_.attachments.size()) + 1;
    QString name = nameOf(part);
    if (name.isEmpty()) name = QStringLiteral("adjunto %1%2").arg(number).arg(extensionOf(part));
    const QString place = QStringLiteral("%1/%2").arg(folder_).arg(number);
    if (!QDir().mkpath(place)) throw Failure(failure::pathFileAccess);
    write(part, place + u'/' + name);
    mail_.attachments.push_back({fromQt(name), logicPath(fromQt(place + u'/' + name))});
  }

  static QString nameOf(GMimeObject* part) {
    if (GMIME_IS_MESSAGE_PART(part)) {
      GMimeMessage* inner = g_mime_message_part_get_message(GMIME_MESSAGE_PART(part));
      const char* subject = inner ? g_mime_message_get_subject(inner) : nullptr;
      const QString title = leavingName(oneLine(subject ? fromUtf8(subject) : Text()).substr(0, 80));
      return (title.isEmpty() ? QStringLiteral("mensaje") : title) + QStringLiteral(".eml");
    }
    const char* name = GMIME_IS_PART(part) ? g_mime_part_get_filename(GMIME_PART(part)) : nullptr;
    return name ? leavingName(fromUtf8(name)) : QString();
  }

  static QString extensionOf(GMimeObject* part) {
    // The system's list knows an older one first.
    if (isType(part, "text", "calendar")) return QStringLiteral(".ics");
    char* type = g_mime_content_type_get_mime_type(g_mime_object_get_content_type(part));
    const QString suffix = QMimeDatabase().mimeTypeForName(toQt(taken(type)).toLower()).preferredSuffix();
    return suffix.isEmpty() ? QString() : u'.' + suffix;
  }

  static void write(GMimeObject* part, const QString& file) {
    const Owned<GMimeStream> out(g_mime_stream_fs_open(
        QFile::encodeName(file).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600, nullptr));
    if (!out) throw Failure(failure::pathFileAccess);
    gssize written = 0;
    if (GMIME_IS_MESSAGE_PART(part)) {
      if (GMimeMessage* inner = g_mime_message_part_get_message(GMIME_MESSAGE_PART(part)))
        written = g_mime_object_write_to_stream(GMIME_OBJECT(inner), nullptr, out.get());
    } else if (GMIME_IS_PART(part)) {
      if (GMimeDataWrapper* content = g_mime_part_get_content(GMIME_PART(part)))
        written = g_mime_data_wrapper_write_to_stream(content, out.get());
    }
    if (written < 0 || g_mime_stream_flush(out.get()) != 0) throw Failure(failure::diskFull);
  }

  const QString folder_;
  ReadMail& mail_;
  QString text_;
};

// Editors put a sign before all, and some programs empty lines; the head begins behind them.
void skipToHead(GMimeStream* file) {
  constexpr std::string_view sign = "\xEF\xBB\xBF";
  std::array<char, 64> start;
  const auto size = std::max<gssize>(g_mime_stream_read(file, start.data(), start.size()), 0);
  const std::string_view text(start.data(), static_cast<std::size_t>(size));
  const std::size_t behindSign = text.starts_with(sign) ? sign.size() : 0;
  const std::size_t head = std::min(text.find_first_not_of("\r\n", behindSign), text.size());
  g_mime_stream_seek(file, static_cast<gint64>(head), GMIME_STREAM_SEEK_SET);
}

Text people(InternetAddressList* list) {
  return list ? oneLine(taken(internet_address_list_to_string(list, nullptr, FALSE))) : Text();
}

// In local time; clocks that are set wrong give years that no calendar here knows.
std::optional<Date> dateOf(GMimeMessage* mail) {
  GDateTime* sent = g_mime_message_get_date(mail);
  if (!sent) return {};
  GDateTime* local = g_date_time_to_local(sent);
  if (!local) return {};
  const DateParts parts{g_date_time_get_year(local),         g_date_time_get_month(local),
                        g_date_time_get_day_of_month(local), g_date_time_get_hour(local),
                        g_date_time_get_minute(local),       std::min(g_date_time_get_second(local), 59)};
  g_date_time_unref(local);
  constexpr int first = 1970, last = 2099;
  if (parts.year < first || parts.year > last) return {};
  return dateFrom(parts);
}

// Whatever the file is, the library makes a mail of it; one without any of these it is not.
bool isMail(GMimeMessage* mail) {
  for (const char* field : {"From", "To", "Subject", "Date", "Message-Id", "Received"})
    if (g_mime_object_get_header(GMIME_OBJECT(mail), field)) return true;
  return false;
}

}  // namespace

std::optional<ReadMail> readMail(TextView path, TextView folder) {
  startMime();
  const Owned<GMimeStream> file(
      g_mime_stream_fs_open(QFile::encodeName(diskFile(path)).constData(), O_RDONLY | O_CLOEXEC, 0, nullptr));
  if (!file) throw Failure(failure::fileNotFound);
  skipToHead(file.get());
  const Owned<GMimeParser> parser(g_mime_parser_new_with_stream(file.get()));
  const auto options = usualCharsets();
  const Owned<GMimeMessage> message(g_mime_parser_construct_message(parser.get(), options.get()));
  if (!message || !isMail(message.get())) return {};

  ReadMail mail;
  if (const char* subject = g_mime_message_get_subject(message.get()))
    mail.subject = oneLine(fromUtf8(subject));
  mail.from = people(g_mime_message_get_from(message.get()));
  mail.to = people(g_mime_message_get_to(message.get()));
  mail.copies = people(g_mime_message_get_cc(message.get()));
  mail.date = dateOf(message.get());
  Reader reader(toQt(nativePath(folder)), mail);
  reader.read(g_mime_message_get_mime_part(message.get()));
  mail.text = reader.text();
  return mail;
}

}  // namespace ovalia::desktop
