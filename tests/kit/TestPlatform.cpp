#include "tests/kit/TestPlatform.h"

#include <algorithm>

#include "routines/ModuleValues.h"

namespace ovalia::kit {
namespace {

constexpr int no = 7;
constexpr int ok = 1;

struct OwnText {
  std::int32_t number;
  TextView text;
  int buttons;
  TextView title;
};

constexpr OwnText ownTexts[] = {
    {7,
     u"El sistema no dispone de suficiente memoria libre.\r\nCierre los programas que no esté utilizando o "
     u"reinicie el sistema.\r\n\r\nEs conveniente reiniciar %1 para evitar errores.",
     4112, u"Error de sistema"},
    {70, u"El fichero está bloqueado por Windows.\r\n\r\nCompruebe que no está abierto en Word.", 4144,
     u"Borrar"},
    {3167, u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
     u"Error"},
    {3200, u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 4160, u"Eliminar"},
};

Text failureNumberLine(std::int32_t number) { return u"\r\nNúmero del error: " + toText(number); }

Text beginning(const Text& procedureName) {
  return u"Error en la rutina: " + procedureName + u"\r\n\r\nTexto del error: ";
}

bool speaksOf(const Text& entry, const Text& procedureName, std::int32_t number) {
  const Text wanted = u" [" + toText(number) + u"] " + procedureName;
  const auto place = entry.find(wanted);
  if (place == Text::npos) return false;
  const TextView rest = TextView(entry).substr(place + wanted.size());
  return rest.starts_with(u" (") || rest.starts_with(CRLF);
}

}  // namespace

TestPlatform::TestPlatform() {
  moduleValues() = {};
  platform.screen = &screen;
  platform.settings = &settings;
  platform.files = &files;
  platform.clipboard = &clipboard;
  platform.shell = &shell;
  platform.objects = &objects;
  platform.clock = &clock;
  platform.app = {.title = u"Agencia", .path = u"\\opt\\agencia", .major = 3, .minor = 5, .revision = 12};
}

TestPlatform::~TestPlatform() { moduleValues() = {}; }

FakeScreen::Expectation& TestPlatform::expectReport(Text procedureName, std::int32_t number) {
  expectLogEntry(procedureName, number);
  for (const OwnText& own : ownTexts)
    if (own.number == number)
      return expectBox(replaceAll(own.text, u"%1", platform.app.title), own.buttons, Text(own.title), ok);
  return screen.expectBoxLike(
      beginning(procedureName),
      failureNumberLine(number) +
          u"\r\n\r\n¿Desea enviar la información sobre el error al soporte técnico de Brenox?",
      4148, reportTitle(), no);
}

FakeScreen::Expectation& TestPlatform::expectReportWithoutOffer(Text procedureName, std::int32_t number) {
  expectLogEntry(procedureName, number);
  return screen.expectBoxLike(beginning(procedureName), failureNumberLine(number), 4144, reportTitle(), ok);
}

void TestPlatform::expectLogEntry(Text procedureName, std::int32_t number) {
  announced_.push_back({std::move(procedureName), number});
}

std::vector<Text> TestPlatform::logEntries() const {
  const Text log = lowerCase(logicPath(moduleValues().ErrLogPath));
  std::vector<Text> entries;
  for (const auto& [path, text] : files.appended)
    if (lowerCase(path) == log) entries.push_back(text);
  return entries;
}

void TestPlatform::verify() {
  screen.verify();
  std::vector<Text> entries = logEntries();
  for (const AnnouncedEntry& wanted : announced_) {
    const auto found = std::ranges::find_if(
        entries, [&](const Text& entry) { return speaksOf(entry, wanted.procedureName, wanted.number); });
    if (found == entries.end())
      ADD_FAILURE() << "announced and never logged: [" << wanted.number << "] "
                    << toUtf8(wanted.procedureName);
    else
      entries.erase(found);
  }
  for (const Text& entry : entries) ADD_FAILURE() << "logged and not announced: " << toUtf8(entry);
  for (const std::string& line : faults.unmet()) ADD_FAILURE() << line;
}

Text TestPlatform::reportTitle() const {
  const auto twoDigits = [](int number) { return (number < 10 ? u"0" : u"") + toText(number); };
  const AppInfo& app = platform.app;
  return u"Error. - Versión: " + toText(app.major) + u"." + twoDigits(app.minor) + u"." +
         twoDigits(app.revision);
}

}  // namespace ovalia::kit
