#include "desktop/MailMessage.h"

#include <fcntl.h>

#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QUuid>
#include <algorithm>

#include "desktop/DiskFile.h"
#include "desktop/LeavingFile.h"
#include "desktop/Mime.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"

namespace ovalia::desktop {

namespace {

Owned<GMimeTextPart> textPart(const Text& body) {
  Owned<GMimeTextPart> part(g_mime_text_part_new_with_subtype("plain"));
  g_mime_text_part_set_charset(part.get(), "utf-8");
  std::string text = toUtf8(replaceAll(body, CRLF, u"\n"));
  std::erase(text, '\0');  // the text would end there
  g_mime_text_part_set_text(part.get(), text.c_str());
  g_mime_part_set_content_encoding(GMIME_PART(part.get()), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
  return part;
}

// Texts and messages go as bytes too: on the way nobody may turn their line ends.
std::pair<QByteArray, QByteArray> typeOf(const QString& name) {
  const QString type = QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension).name();
  const QByteArray kind = type.section(u'/', 0, 0).toLatin1();
  if (kind != "application" && kind != "image" && kind != "audio" && kind != "video")
    return {"application", "octet-stream"};
  return {kind, type.section(u'/', 1).toLatin1()};
}

Owned<GMimePart> attachment(const MailAttachment& attached) {
  const QString file = diskFile(attached.path);
  if (!QFileInfo(file).isFile()) throw Failure(failure::fileNotFound);
  GError* error = nullptr;
  const Owned<GMimeStream> stream(
      g_mime_stream_fs_open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC, 0, &error));
  if (error) g_error_free(error);
  if (!stream) throw Failure(failure::fileNotFound);
  const Owned<GMimeDataWrapper> content(
      g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
  QString name = leavingName(attached.name);
  if (name.isEmpty()) name = QFileInfo(file).fileName();
  const auto [kind, subkind] = typeOf(name);
  Owned<GMimePart> part(g_mime_part_new_with_type(kind.constData(), subkind.constData()));
  g_mime_part_set_content(part.get(), content.get());
  g_mime_part_set_filename(part.get(), name.toUtf8().constData());
  g_mime_part_set_content_encoding(part.get(), GMIME_CONTENT_ENCODING_BASE64);
  return part;
}

// A control character would end the line of the head, or the text.
std::string oneLine(TextView text) {
  std::string plain = toUtf8(text);
  std::ranges::replace_if(
      plain, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return plain;
}

Owned<InternetAddressList> parsed(TextView to) {
  startMime();
  const std::string text = oneLine(replaceAll(to, u";", u","));
  return Owned<InternetAddressList>(internet_address_list_parse(nullptr, text.c_str()));
}

void setAddresses(GMimeMessage* mail, GMimeAddressType role, const Text& addresses) {
  if (const auto list = parsed(addresses))
    internet_address_list_append(g_mime_message_get_addresses(mail, role), list.get());
}

void setHead(GMimeMessage* mail, const MailMessage& message) {
  setAddresses(mail, GMIME_ADDRESS_TYPE_FROM, message.from);
  setAddresses(mail, GMIME_ADDRESS_TYPE_TO, message.to);
  g_mime_message_set_subject(mail, oneLine(message.subject).c_str(), "utf-8");
  GDateTime* now = g_date_time_new_now_local();
  g_mime_message_set_date(mail, now);
  g_date_time_unref(now);
  const QByteArray id = QUuid::createUuid().toByteArray(QUuid::WithoutBraces) + "@ovalia";
  g_mime_message_set_message_id(mail, id.constData());
}

Owned<GMimeMessage> composed(const MailMessage& message) {
  Owned<GMimeMessage> mail(g_mime_message_new(TRUE));
  setHead(mail.get(), message);
  const Owned<GMimeTextPart> text = textPart(message.body);
  const Owned<GMimeMultipart> parts(g_mime_multipart_new_with_subtype("mixed"));
  g_mime_multipart_add(parts.get(), GMIME_OBJECT(text.get()));
  for (const MailAttachment& attached : message.attachments)
    g_mime_multipart_add(parts.get(), GMIME_OBJECT(attachment(attached).get()));
  g_mime_message_set_mime_part(mail.get(), GMIME_OBJECT(parts.get()));
  return mail;
}

bool isAddress(const std::string& address) {
  const auto at = address.find('@');
  const bool shaped = at != std::string::npos && at > 0 && at + 1 < address.size();
  return shaped && address.find('@', at + 1) == std::string::npos &&
         std::ranges::none_of(address, [](char c) { return static_cast<unsigned char>(c) <= ' '; });
}

// Outside of quoted names.
std::size_t atSigns(TextView text) {
  std::size_t count = 0;
  bool quoted = false;
  for (const char16_t c : text) {
    quoted = quoted != (c == u'"');
    count += c == u'@' && !quoted;
  }
  return count;
}

}  // namespace

std::optional<std::vector<Text>> mailAddresses(TextView to) {
  std::vector<Text> addresses;
  if (trimBlanks(to).empty()) return addresses;
  const auto list = parsed(to);
  if (!list) return {};
  for (int i = 0; i < internet_address_list_length(list.get()); ++i) {
    InternetAddress* one = internet_address_list_get_address(list.get(), i);
    const char* address = INTERNET_ADDRESS_IS_MAILBOX(one)
                              ? internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(one))
                              : nullptr;
    if (!address || !isAddress(address)) return {};
    addresses.push_back(fromUtf8(address));
  }
  // What the library makes no sense of it passes over.
  if (addresses.empty() || addresses.size() != atSigns(to)) return {};
  return addresses;
}

void writeMail(const MailMessage& message, QFileDevice& file) {
  startMime();
  const Owned<GMimeMessage> mail = composed(message);
  file.flush();
  const Owned<GMimeStream> out(g_mime_stream_fs_new(file.handle()));
  g_mime_stream_fs_set_owner(GMIME_STREAM_FS(out.get()), FALSE);
  GMimeFormatOptions* options = g_mime_format_options_new();
  g_mime_format_options_set_newline_format(options, GMIME_NEWLINE_FORMAT_DOS);
  const auto written = g_mime_object_write_to_stream(GMIME_OBJECT(mail.get()), options, out.get());
  g_mime_format_options_free(options);
  if (written < 0 || g_mime_stream_flush(out.get()) != 0) throw Failure(failure::diskFull);
}

}  // namespace ovalia::desktop
