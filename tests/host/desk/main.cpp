// One desk of the agency for tests that need several: agencia_desk DATABASE USER. The agency's own windows
// on that database, without a screen, and a clerk who does what standard input says.
#include <unistd.h>

#include <iostream>

#include "component/CNota.h"
#include "desktop/Surroundings.h"
#include "host/Application.h"
#include "host/PassingSettings.h"
#include "host/QtDialogs.h"
#include "tests/host/desk/Clerk.h"
#include "tests/host/desk/Conversation.h"

namespace {

using namespace ovalia;
using namespace ovalia::host;

void serve(const std::filesystem::path& file, const Text& user, int answers) {
  AppInfo about;
  about.title = u"Agencia";
  desktop::Surroundings here(about);
  const PassingSettings passing;
  BeepingScreen screen;
  here.platform().screen = &screen;

  QtDialogs dialogs;
  Workplace workplace{openAgency(file, user), dialogs, {}, {}};
  CNota::cgDB(workplace.agency.database);
  CNota::PathDB(fromUtf8(file.native()));
  CNota::ErrLogPath(fromUtf8((file.parent_path() / "ErrLog[_].txt").native()));
  MainWindow window(workplace);
  screen.setHostForms({[&] { return window.activeForm(); }, [] { return std::vector<ObjectRef>(); }});
  window.show();

  Clerk clerk(window, screen);
  Conversation talk(std::cin, answers, [&](const std::string& command) { return clerk.obey(command); });
  talk.over(window, "ready");
  screen.setHostForms({});
}

}  // namespace

int main(int argc, char** argv) {
  // Whatever else prints must not come between the answers.
  const int answers = dup(STDOUT_FILENO);
  dup2(STDERR_FILENO, STDOUT_FILENO);
  if (argc != 3 || answers < 0) {
    std::cerr << "agencia_desk DATABASE USER\n";
    return 2;
  }
  Application application(argc, argv);
  try {
    serve(argv[1], fromUtf8(argv[2]), answers);
  } catch (const StartFailure& failure) {
    std::cerr << toUtf8(failure.message) << '\n';
    return 1;
  }
  return 0;
}
