#pragma once

#include "host/Dialogs.h"

namespace ovalia::host {

// The dialogs of the desktop, over whatever window is on top.
class QtDialogs : public Dialogs {
 public:
  std::optional<Text> pickOne(TextView title, std::span<const Text> names, TextView current) override;
  std::optional<std::vector<Text>> pickSeveral(TextView title, std::span<const Text> names,
                                               std::span<const Text> chosen) override;
  void tell(TextView title, TextView message) override;
  bool confirm(TextView title, TextView question) override;
  int yesNoCancel(TextView title, TextView question) override;
  std::vector<Text> openFiles(const FileQuestion& question) override;
  Text saveFile(const FileQuestion& question) override;
  bool choosePrinter() override;
  bool openFile(TextView nativePath, TextView shownName) override;
  void sendMail(const desktop::MailMessage& draft) override;
};

// The extension that the first of such masks asks for, and a name without one gets: "txt"; "" for any.
Text onlyExtension(TextView filter);

// "Documentos (*.*)|*.*|Texto (*.txt)|*.txt" as the toolkit writes it.
Text toolkitFilter(TextView filter);

}  // namespace ovalia::host
