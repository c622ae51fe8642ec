#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/Failure.h"
#include "platform/Object.h"
#include "platform/Regional.h"
#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia {

// What the user sees and answers. Forms and controls are handed out as late-bound objects; both have `Name`.
class Screen {
 public:
  virtual ~Screen() = default;

  virtual ObjectRef activeForm() = 0;          // empty when there is none
  virtual ObjectRef activeControl() = 0;       // of the active form; empty when there is none
  virtual std::vector<ObjectRef> forms() = 0;  // loaded forms, in the order they were loaded

  virtual int mousePointer() = 0;  // 0 default, 11 hourglass
  virtual void setMousePointer(int pointer) = 0;

  virtual double width() = 0;  // twips
  virtual double height() = 0;

  // The classic flag word and button codes: 1 OK, 2 Cancel, 6 Yes, 7 No. An empty title gives the
  // application's title. Returns when the user has answered; events of the program go on meanwhile.
  virtual int messageBox(TextView message, int buttons, TextView title) = 0;
  virtual Text inputBox(TextView prompt, TextView title, TextView initial) = 0;  // "" on cancel

  virtual void beep() = 0;
  virtual void yield() = 0;  // handles what waits in the event loop; anything may have happened afterwards
};

// Per-user settings: texts under application, section and key. Names are kept to the letter.
class Settings {
 public:
  virtual ~Settings() = default;
  virtual Text get(TextView application, TextView section, TextView key, TextView fallback) = 0;
  virtual void save(TextView application, TextView section, TextView key, TextView value) = 0;
  virtual std::vector<std::pair<Text, Text>> all(TextView application, TextView section) = 0;
};

// Files by "\"-separated paths. Each component of a path is looked up without regard to case, an exact match
// first; doubled separators count as one. A path without a folder, and one with a drive letter, does not
// exist (76). Failures: 53, 58, 61, 70, 75, 76.
class Files {
 public:
  static constexpr int directoryAttribute = 16;

  struct Entry {
    Text name;  // as spelt on disk
    int attributes = 0;
    Date modified;
  };

  virtual ~Files() = default;

  // The first plain file that the path or mask names ("*" and "?" in the last component), in the disk's
  // spelling; "" when there is none.
  virtual Text firstMatch(TextView pathOrMask) = 0;
  virtual std::vector<Entry> list(TextView folder) = 0;  // without "." and ".."

  virtual int attributes(TextView path) = 0;

  // Whether `other` reaches the plain file `path` too, by another spelling, another name of the file or a
  // link on the way; false where `other` reaches nothing. Fails where `path` cannot be copied from: 53,
  // 75, 76.
  virtual bool sameFile(TextView path, TextView other) = 0;
  virtual Date modified(TextView path) = 0;
  virtual void makeDirectory(TextView path) = 0;  // one level; 75 when it is there already

  // Replaces `to` only where the user chose it as the target; else 58 when it exists.
  virtual void copy(TextView from, TextView to, bool replace) = 0;
  virtual void remove(TextView path) = 0;

  // UTF-8 without a mark; other programs may read and append meanwhile.
  virtual void append(TextView path, TextView text) = 0;
  virtual void write(TextView path, TextView text) = 0;

  virtual int driveType(TextView root) = 0;  // 5 is a CD-ROM
  virtual Text temporaryFolder() = 0;        // with its final "\"
};

// A "\"-separated path in the system's own form, for the hosts that get one in an event; and the way back.
Text nativePath(TextView path);
Text logicPath(TextView path);

// The clipboard, step by step as the classic calls go, so that a routine that fails half-way leaves it open.
class Clipboard {
 public:
  static constexpr int bitmapFormat = 2;
  static constexpr int filesFormat = 15;

  virtual ~Clipboard() = default;
  virtual bool has(int format) = 0;
  virtual bool open() = 0;
  virtual void empty() = 0;
  virtual bool setFiles(std::span<const Text> paths) = 0;  // "\"-separated
  virtual bool setDropEffect(int effect) = 0;              // 1 copy
  virtual std::vector<Text> files() = 0;
  virtual void close() = 0;
};

// Services of the desktop and the system around it.
class Shell {
 public:
  struct RecycleResult {
    int code = 0;       // 0 done
    int lastError = 0;  // of the system
    bool aborted = false;
  };
  struct SystemVersion {
    int platform = -1;  // 0, 1, 2 the Windows lines; any other number is shown as it is
    Text name;          // where platform is none of those
    int major = 0, minor = 0, build = 0;
    Text servicePack;
  };
  struct FileVersion {
    int major = 0, minor = 0, build = 0;
  };

  virtual ~Shell() = default;

  // Sends a plain file to the recycle bin. A folder of that name is no such file: a damaged name must not
  // take all that lies below it along.
  virtual RecycleResult recycle(TextView path) = 0;

  // A picture of the program's own windows, as a bitmap file; a failure is 75.
  virtual void saveScreenPicture(TextView path) = 0;
  virtual SystemVersion systemVersion() = 0;
  virtual std::optional<FileVersion> fileVersion(TextView path) = 0;
};

// Creation of outside components by class name.
class Objects {
 public:
  virtual ~Objects() = default;
  virtual ObjectRef create(TextView className) = 0;  // 429 when the name is not registered
};

// Class names (without regard to case) and what makes them.
class ObjectRegistry : public Objects {
 public:
  using Factory = std::function<ObjectRef()>;
  void add(TextView className, Factory factory);
  ObjectRef create(TextView className) override;

 private:
  std::map<Text, Factory, NameLess> factories_;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date now() = 0;  // local time, whole seconds
  Date today();            // the day part of now
  Date timeOfDay();        // the time part, on day zero
};

// The application as its user knows it. `title` is one string with the `title` of the host's application
// object: boxes, reports and settings carry it.
struct AppInfo {
  Text title = u"Ovalia";
  Text path;  // of the program's folder, "\"-separated
  int major = 1, minor = 0, revision = 0;
};

// What the component asks of its surroundings, one set a thread. The pieces belong to whoever installs it and
// outlive the installation.
struct Platform {
  Screen* screen = nullptr;
  Settings* settings = nullptr;
  Files* files = nullptr;
  Clipboard* clipboard = nullptr;
  Shell* shell = nullptr;
  Objects* objects = nullptr;
  Clock* clock = nullptr;
  AppInfo app;
  Regional regional;  // `thisYear` follows the clock: use regionalNow()

  // This thread's platform; failure 91 with a clear text when there is none.
  static Platform& current();
  static bool installed();
};

// The regional settings of this thread's platform with the clock's year in them; the Spanish defaults where
// no platform is installed.
Regional regionalNow();

// Makes a platform this thread's for as long as it lives, then puts the one before back.
class PlatformInstallation {
 public:
  explicit PlatformInstallation(Platform& platform);
  ~PlatformInstallation();
  PlatformInstallation(const PlatformInstallation&) = delete;
  PlatformInstallation& operator=(const PlatformInstallation&) = delete;

 private:
  Platform* before_;
};

}  // namespace ovalia
