#pragma once

#include "platform/Platform.h"

namespace ovalia::desktop {

// Files go as "text/uri-list", with the mark by which file managers know a copy from a cut.
class DesktopClipboard : public Clipboard {
 public:
  bool has(int format) override;
  bool open() override;  // a clipboard that was left open can be opened again
  void empty() override;
  bool setFiles(std::span<const Text> paths) override;
  bool setDropEffect(int effect) override;
  std::vector<Text> files() override;  // whoever asks is about to copy them
  void close() override;

 private:
  void put(bool marked);

  std::vector<Text> paths_;
};

}  // namespace ovalia::desktop
