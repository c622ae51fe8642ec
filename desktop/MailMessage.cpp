// The toolkit's word for its own macro is a member's name in GLib.
#undef signals

#include "desktop/MailMessage.h"

#include <gmime/gmime.h>

#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <memory>

#include "desktop/DiskFile.h"
#include "platform/Failure.h"

namespace ovalia::desktop {

namespace {

struct Unref {
  void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

void startLibrary() {
  static const bool started = (g_mime_init(), true);
  (void)started;
}

Owned<GMimeTextPart> textPart(const Text& body) {
  Owned<GMimeTextPart> part(g_mime_text_part_new_with_subtype("plain"));
  g_mime_text_part_set_charset(part.get(), "utf-8");
  g_mime_text_part_set_text(part.get(), toUtf8(replaceAll(body, CRLF, u"\n")).c_str());
  g_mime_part_set_content_encoding(GMIME_PART(part.get()), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
  return part;
}

Owned<GMimePart> attachment(const Text& path) {
  QFile file(diskFile(path));
  if (!file.open(QIODevice::ReadOnly)) throw Failure(failure::fileNotFound);
  const QByteArray bytes = file.readAll();
  const Owned<GMimeStream> stream(
      g_mime_stream_mem_new_with_buffer(bytes.constData(), static_cast<size_t>(bytes.size())));
  const Owned<GMimeDataWrapper> content(
      g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
  Owned<GMimePart> part(g_mime_part_new_with_type("application", "octet-stream"));
  g_mime_part_set_content(part.get(), content.get());
  g_mime_part_set_filename(part.get(), QFileInfo(file).fileName().toUtf8().constData());
  g_mime_part_set_content_encoding(part.get(), GMIME_CONTENT_ENCODING_BASE64);
  return part;
}

void setHead(GMimeMessage* mail, const MailMessage& message) {
  g_mime_message_add_mailbox(mail, GMIME_ADDRESS_TYPE_FROM, nullptr, toUtf8(message.from).c_str());
  g_mime_message_add_mailbox(mail, GMIME_ADDRESS_TYPE_TO, nullptr, toUtf8(message.to).c_str());
  g_mime_message_set_subject(mail, toUtf8(message.subject).c_str(), "utf-8");
  GDateTime* now = g_date_time_new_now_local();
  g_mime_message_set_date(mail, now);
  g_date_time_unref(now);
  const QByteArray id = QUuid::createUuid().toByteArray(QUuid::WithoutBraces) + "@ovalia";
  g_mime_message_set_message_id(mail, id.constData());
}

}  // namespace

QByteArray composeMail(const MailMessage& message) {
  startLibrary();
  const Owned<GMimeMessage> mail(g_mime_message_new(TRUE));
  setHead(mail.get(), message);

  const Owned<GMimeTextPart> text = textPart(message.body);
  const Owned<GMimeMultipart> parts(g_mime_multipart_new_with_subtype("mixed"));
  g_mime_multipart_add(parts.get(), GMIME_OBJECT(text.get()));
  for (const Text& path : message.attachments) {
    const Owned<GMimePart> part = attachment(path);
    g_mime_multipart_add(parts.get(), GMIME_OBJECT(part.get()));
  }
  g_mime_message_set_mime_part(mail.get(), GMIME_OBJECT(parts.get()));

  GMimeFormatOptions* options = g_mime_format_options_new();
  g_mime_format_options_set_newline_format(options, GMIME_NEWLINE_FORMAT_DOS);
  char* written = g_mime_object_to_string(GMIME_OBJECT(mail.get()), options);
  g_mime_format_options_free(options);
  const QByteArray bytes(written);
  g_free(written);
  return bytes;
}

}  // namespace ovalia::desktop
