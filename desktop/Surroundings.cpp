#include "desktop/Surroundings.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "desktop/Archiver.h"
#include "desktop/CardView.h"
#include "desktop/DesktopClipboard.h"
#include "desktop/DesktopScreen.h"
#include "desktop/DesktopShell.h"
#include "desktop/IniSettings.h"
#include "desktop/LivelyFiles.h"
#include "desktop/Mailer.h"
#include "desktop/PickList.h"
#include "desktop/QtText.h"
#include "desktop/SearchDialog.h"
#include "desktop/SearchDialogObject.h"
#include "desktop/TemplatePicker.h"
#include "system/SystemClock.h"

namespace ovalia::desktop {

namespace {

std::unique_ptr<QApplication> applicationIfNone() {
  if (QCoreApplication::instance()) return nullptr;
  static int count = 1;
  static char name[] = "ovalia";
  static char* arguments[] = {name, nullptr};
  return std::make_unique<QApplication>(count, arguments);
}

}  // namespace

struct Surroundings::Parts {
  std::unique_ptr<QApplication> application = applicationIfNone();
  QTranslator spanish;
  DesktopScreen screen;
  IniSettings settings;
  DesktopClipboard clipboard;
  DesktopShell shell;
  LivelyFiles files;
  system::SystemClock clock;
  ObjectRegistry objects;
  Platform platform;
  std::unique_ptr<PlatformInstallation> installation;
};

Surroundings::Surroundings(AppInfo app) : parts_(std::make_unique<Parts>()) {
  Parts& parts = *parts_;
  if (parts.spanish.load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&parts.spanish);

  if (app.path.empty()) app.path = logicPath(fromQt(QCoreApplication::applicationDirPath()));
  parts.platform = {.screen = &parts.screen,
                    .settings = &parts.settings,
                    .files = &parts.files,
                    .clipboard = &parts.clipboard,
                    .shell = &parts.shell,
                    .objects = &parts.objects,
                    .clock = &parts.clock,
                    .app = std::move(app),
                    .regional = {}};
  parts.installation = std::make_unique<PlatformInstallation>(parts.platform);

  parts.objects.add(u"ZipLibrary.CGZipFiles", makeArchiver);
  parts.objects.add(u"Zandrel.CZandrel", [] { return makeMailer(); });
  parts.objects.add(u"Trivane.CTrivane", makePickList);
  parts.objects.add(u"Perlaz.CPerlaz", makeTemplatePicker);
  parts.objects.add(u"Mosken.CMosken",
                    [wish = std::make_shared<SearchWish>()] { return makeSearchDialog(wish); });
  installViews();
}

Surroundings::~Surroundings() { forms::Runtime::current().setViewFactory({}); }

Platform& Surroundings::platform() { return parts_->platform; }
ObjectRegistry& Surroundings::objects() { return parts_->objects; }
void Surroundings::setHostForms(HostForms forms) { parts_->screen.setHostForms(std::move(forms)); }

}  // namespace ovalia::desktop
