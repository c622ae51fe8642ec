#pragma once

#include <QMimeType>
#include <QStringList>
#include <optional>

namespace ovalia::desktop {

// A program with a file to open.
struct Launch {
  QString program;  // full path
  QStringList arguments;
  QString folder;  // to start in; "" is that of whoever starts it
};

// The programs of the user's desktop, as its entries ("*.desktop") and its lists of associations
// ("mimeapps.list") tell of them. What cannot be read counts as not there.
class DesktopPrograms {
 public:
  // Folders in the order of their precedence: those with settings, and those with data, below which
  // "applications" holds the entries. `desktops` are the names of the running desktop, whose own lists go
  // before the common ones.
  DesktopPrograms(QStringList settings, QStringList data, QStringList desktops = {});

  // Those of the user, as the environment says.
  static DesktopPrograms ofUser();

  // Whether there is any program at all to be seen.
  bool any() const;

  // What opens a file of the type, the user's choice first; for a type without programs those of the types
  // that it is a case of (text, of a table written as text). Programs that are not installed, and those that
  // need a terminal, are left out.
  QList<Launch> openers(const QMimeType& type, const QString& file) const;

 private:
  QStringList lists() const;
  QStringList entriesOf(const QStringList& names) const;
  QString entryFile(const QString& id) const;
  std::optional<Launch> launch(const QString& id, const QString& file) const;

  QStringList settings_, data_, desktops_;
};

// Opens the file with the first program of the user's that starts: one for what it holds, see documentType.
// False when there is none. Where no program at all is to be seen, as from a sandbox, the toolkit is asked.
bool openDocument(const QString& file, const QString& shownName);

}  // namespace ovalia::desktop
