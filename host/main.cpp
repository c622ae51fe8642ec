#include <cstdlib>
#include <iostream>

#include "component/CNota.h"
#include "desktop/Surroundings.h"
#include "desktop/TemplatePicking.h"
#include "host/Application.h"
#include "host/MainWindow.h"
#include "host/PlaceMemory.h"
#include "host/QtDialogs.h"
#include "host/TemplateCheck.h"
#include "host/Tour.h"

namespace {

using namespace ovalia;
using namespace ovalia::host;

constexpr int failed = 1;
constexpr int criticalBox = 16;

// With a screen the message comes up as a box too; without one, or on a tour, nobody could answer it.
int refuse(const Text& message, bool box) {
  std::cerr << "agencia: " << toUtf8(message) << '\n';
  if (box) Platform::current().screen->messageBox(message, criticalBox, u"");
  return failed;
}

// What the toolkit says of a screen that is none helps nobody.
void leaveOutScreenWarnings() {
  static const QtMessageHandler usual = qInstallMessageHandler(nullptr);
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QStringLiteral("This plugin does not support"))) return;
    if (usual) return usual(type, context, message);
    std::cerr << message.toStdString() << '\n';
  });
}

int tellOfTemplate(const std::filesystem::path& file) {
  const TemplateReport report = checkTemplate(file);
  std::cout << toUtf8(report.text);
  return report.good ? 0 : failed;
}

// A tour works on a copy: it writes.
Agency chosenAgency(const StartOptions& options, Platform& platform) {
  const auto file = prepareDatabase(options);
  const Text user = platform.settings->get(platform.app.title, u"Settings", u"Usuario", u"");
  Agency agency = openAgency(file, user);
  return options.tour ? openAgency(copyForTour(file, *options.tour), user) : agency;
}

int run(const StartOptions& options, desktop::Surroundings& here) {
  QtDialogs dialogs;
  TourDialogs onTour;
  Workplace workplace{chosenAgency(options, here.platform()), options.tour ? onTour : dialogs, {}, {}};
  const std::filesystem::path& file = workplace.agency.file;
  CNota::cgDB(workplace.agency.database);
  CNota::PathDB(fromUtf8(file.native()));
  CNota::ErrLogPath(fromUtf8((file.parent_path() / "ErrLog[_].txt").native()));

  desktop::TemplatePicking::current().describe = [](TextView file) { return templateSummary(toUtf8(file)); };
  MainWindow window(workplace);
  here.setHostForms({[&window] { return window.activeForm(); },
                     [&window] {
                       std::vector<ObjectRef> forms;
                       if (ObjectRef form = window.activeForm()) forms.push_back(std::move(form));
                       return forms;
                     }});
  int result = 0;
  if (options.tour) {
    leaveOutScreenWarnings();
    result = playTour(window, onTour, *options.tour) ? 0 : failed;
  } else {
    restorePlace(window);
    window.show();
    result = QApplication::exec();
  }
  here.setHostForms({});
  return result;
}

bool hasScreen() { return std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY"); }

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  StartOptions options;
  try {
    options = parseOptions(arguments);
  } catch (const StartFailure& failure) {
    return refuse(failure.message, false);
  }
  if (options.help) {
    std::cout << toUtf8(usage());
    return 0;
  }
  if (options.templateToCheck) return tellOfTemplate(*options.templateToCheck);
  // A tour needs no screen.
  if ((options.tour || !hasScreen()) && !std::getenv("QT_QPA_PLATFORM"))
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  if (!options.tour && !hasScreen() && qEnvironmentVariable("QT_QPA_PLATFORM") == QStringLiteral("offscreen"))
    return refuse(u"No hay pantalla. Use --tour CARPETA para ver el programa sin ella.", false);

  Application application(argc, argv);
  AppInfo about;
  about.title = u"Agencia";
  desktop::Surroundings here(about);
  try {
    return run(options, here);
  } catch (const StartFailure& failure) {
    return refuse(failure.message, !options.tour);
  } catch (...) {
    return refuse(currentFailure().description(), !options.tour);
  }
}
