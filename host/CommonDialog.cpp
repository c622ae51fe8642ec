#include "host/CommonDialog.h"

#include "platform/Failure.h"
#include "platform/Variant.h"

namespace ovalia::host {

namespace {

constexpr std::int32_t severalFiles = 0x200;  // of FLAGS

FileQuestion questionOf(MemberTable& dialog) {
  FileQuestion question;
  question.title = dialog.get(u"DialogTitle").text();
  question.filter = dialog.get(u"Filter").text();
  question.folder = dialog.get(u"InitDir").text();
  question.name = dialog.get(u"fileName").text();
  question.several = dialog.get(u"FLAGS").toLong() & severalFiles;
  return question;
}

void cancelled(MemberTable& dialog) {
  if (dialog.get(u"CancelError").holds()) throw Failure(failure::dialogCancelled);
}

Text fileNames(const std::vector<Text>& paths) {
  if (paths.size() == 1) return paths[0];
  const auto folderEnd = paths[0].rfind(u'\\');
  Text all = paths[0].substr(0, folderEnd);
  for (const Text& path : paths) all += u'\0' + path.substr(path.rfind(u'\\') + 1);
  return all;
}

void answer(MemberTable& dialog, const std::vector<Text>& paths) {
  if (paths.empty()) return cancelled(dialog);
  dialog.put(u"fileName", fileNames(paths));
}

}  // namespace

ObjectRef commonDialog(Dialogs& dialogs) {
  auto object = std::make_shared<MemberTable>();
  MemberTable& dialog = *object;
  dialog.value(u"Name", u"dlgfrmbase");
  for (TextView text : {u"DialogTitle", u"Filter", u"fileName", u"InitDir"}) dialog.value(text, u"");
  for (TextView number : {u"FLAGS", u"MaxFileSize"}) dialog.value(number, std::int32_t(0));
  dialog.value(u"CancelError", false);
  dialog.method(u"ShowOpen", [&dialog, &dialogs](Arguments) -> Variant {
    answer(dialog, dialogs.openFiles(questionOf(dialog)));
    return {};
  });
  dialog.method(u"ShowSave", [&dialog, &dialogs](Arguments) -> Variant {
    const Text path = dialogs.saveFile(questionOf(dialog));
    answer(dialog, path.empty() ? std::vector<Text>() : std::vector{path});
    return {};
  });
  dialog.method(u"ShowPrinter", [&dialog, &dialogs](Arguments) -> Variant {
    if (!dialogs.choosePrinter()) cancelled(dialog);
    return {};
  });
  return object;
}

}  // namespace ovalia::host
