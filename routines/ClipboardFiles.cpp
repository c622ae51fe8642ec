#include "routines/ClipboardFiles.h"

#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

Clipboard& clipboard() { return *Platform::current().clipboard; }

}  // namespace

bool ClipboardCopyFiles(std::span<const Text> archivos) {
  return procedure(u"ClipboardCopyFiles() de RutinasErr", false, [&](bool& result) {
    constexpr int copyEffect = 1;
    if (!clipboard().open()) return;
    clipboard().empty();
    if (archivos.empty()) throw Failure(failure::indexOutOfRange);
    if (clipboard().setFiles(archivos)) {
      result = true;
      clipboard().setDropEffect(copyEffect);
    }
    clipboard().close();
  });
}

std::int32_t ClipboardPasteFiles(std::vector<Text>& archivos) {
  return procedure(u"ClipboardPasteFiles() de RutinasErr", std::int32_t(0), [&](std::int32_t& result) {
    constexpr std::int32_t noFiles = -1;
    if (!clipboard().has(Clipboard::filesFormat)) {
      result = noFiles;
      return;
    }
    if (!clipboard().open()) return;
    archivos = clipboard().files();
    clipboard().close();
    result = static_cast<std::int32_t>(archivos.size());
  });
}

}  // namespace ovalia
