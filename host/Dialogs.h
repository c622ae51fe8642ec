#pragma once

#include <optional>
#include <span>
#include <vector>

#include "desktop/MailMessage.h"
#include "platform/Text.h"

// What the agency asks its user, so that a test can answer in the user's place. Texts are in the system's
// language of paths only where said so.
namespace ovalia::host {

struct FileQuestion {
  Text title;
  Text filter;  // "Documentos (*.*)|*.*"
  Text folder;  // "\"-separated; one that does not exist opens the user's documents folder
  Text name;
  bool several = false;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // One name, or several, of a list. Nothing when the user cancels.
  virtual std::optional<Text> pickOne(TextView title, std::span<const Text> names, TextView current) = 0;
  virtual std::optional<std::vector<Text>> pickSeveral(TextView title, std::span<const Text> names,
                                                       std::span<const Text> chosen) = 0;

  virtual void tell(TextView title, TextView message) = 0;
  virtual bool confirm(TextView title, TextView question) = 0;
  virtual int yesNoCancel(TextView title, TextView question) = 0;  // 6 yes, 7 no, 2 cancel

  // "\"-separated full paths; empty when the user cancels.
  virtual std::vector<Text> openFiles(const FileQuestion& question) = 0;
  virtual Text saveFile(const FileQuestion& question) = 0;
  virtual bool choosePrinter() = 0;  // false when the user cancels

  // The desktop's program for what a file holds; false when it has none. The path is in the system's own
  // form, `shownName` what its user calls the file. The program works on the file itself, so that what is
  // saved there stays.
  virtual bool openFile(TextView nativePath, TextView shownName) = 0;

  // Lets the user look through a mail, say to whom it goes and send it. It tells itself what goes wrong.
  virtual void sendMail(const desktop::MailMessage& draft) = 0;
};

}  // namespace ovalia::host
