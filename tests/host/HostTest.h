#pragma once

#include <deque>
#include <filesystem>
#include <memory>

#include "host/Agency.h"
#include "host/Workplace.h"
#include "tests/kit/TemporaryFolder.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::host {

// A user who has made up their mind: every question takes the next prepared answer, or is cancelled.
class ReadyDialogs : public Dialogs {
 public:
  std::deque<Text> picks;                   // for pickOne
  std::deque<std::vector<Text>> manyPicks;  // for pickSeveral
  std::deque<std::vector<Text>> files;      // for openFiles and saveFile
  bool confirms = false;
  int yesNoCancelAnswer = 2;
  bool printerChosen = false;
  bool opens = true;

  std::vector<Text> offered;  // names of the last list
  Text current;               // what it proposed
  std::vector<Text> told;     // "title: message"
  std::vector<Text> asked;    // "title: question"
  std::vector<Text> opened;   // files
  Text openedAs;              // what the last file is shown by
  FileQuestion question;      // the last one about files
  std::vector<desktop::MailMessage> mails;

  std::optional<Text> pickOne(TextView title, std::span<const Text> names, TextView now) override;
  std::optional<std::vector<Text>> pickSeveral(TextView title, std::span<const Text> names,
                                               std::span<const Text> chosen) override;
  void tell(TextView title, TextView message) override;
  bool confirm(TextView title, TextView text) override;
  int yesNoCancel(TextView title, TextView text) override;
  std::vector<Text> openFiles(const FileQuestion& asked) override;
  Text saveFile(const FileQuestion& asked) override;
  bool choosePrinter() override { return printerChosen; }
  bool openFile(TextView nativePath, TextView shownName) override;
  void sendMail(const desktop::MailMessage& draft) override { mails.push_back(draft); }
};

// The sample agency in a file of its own, in surroundings that report what was not announced.
class HostTest : public kit::LogicTest {
 protected:
  HostTest();

  dao::Database& database() { return *workplace.agency.database; }

  // The one value of a statement.
  Variant one(TextView sql);

  // A property of its own, and a note on it; both give the key.
  std::int32_t addProperty();
  std::int32_t addNote(std::int32_t property, TextView subject, Date created = Date{45292});

  kit::TemporaryFolder folder;
  ReadyDialogs dialogs;
  Workplace workplace;
};

// A new agency's file of that many annotations in the folder; made once for each number, then copied.
std::filesystem::path sampleFile(const std::filesystem::path& folder, int annotations);

}  // namespace ovalia::host
