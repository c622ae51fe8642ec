#include "host/TemplateCheck.h"

#include <algorithm>

#include "host/DocumentMarks.h"
#include "host/Names.h"
#include "host/RtfTemplate.h"
#include "host/TemplateFailure.h"
#include "host/TemplateFile.h"
#include "platform/Failure.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

// The bookmarks of a template: those that are filled, and others.
struct Bookmarks {
  std::vector<Text> marks, unknown;
};

// Word processors keep bookmarks of their own under such names, and call those of a field so that they copy.
bool isHouseBookmark(TextView name) {
  return name.starts_with(u'_') || name.find(u"_Copy_") != TextView::npos;
}

// TemplateFailure where it could not be filled.
Bookmarks bookmarksOf(std::string_view document) {
  filledRtf(document,
            [](TextView name) { return documentMark(name) ? std::optional(Text()) : std::nullopt; });
  Bookmarks found;
  for (Text& name : rtfBookmarks(document)) {
    if (isHouseBookmark(name)) continue;
    (documentMark(name) ? found.marks : found.unknown).push_back(std::move(name));
  }
  return found;
}

Text remarkOn(const DocumentMark& mark) {
  switch (mark.source) {
    case MarkSource::card:
      return u" (en una lista, lo mismo que «" + Text(mark.same) + u"»)";
    case MarkSource::list:
      return u" (en una ficha, lo mismo que «" + Text(mark.same) + u"»)";
    default:
      return {};
  }
}

Text proposalFor(TextView unknown) {
  std::vector<Text> names;
  for (const DocumentMark& mark : documentMarks()) names.emplace_back(mark.name);
  const auto near = nearest(names, unknown);
  return near ? u" (¿quería decir «" + *near + u"»?)" : Text();
}

void addLines(Text& text, TextView title, const std::vector<Text>& names, auto&& remark) {
  if (names.empty()) return;
  text += Text(title) + u"\n";
  for (const Text& name : names) text += u"  " + name + remark(name) + u"\n";
}

}  // namespace

TemplateReport checkTemplate(const fs::path& file) {
  TemplateReport report;
  report.text = u"Plantilla: " + fromUtf8(file.native()) + u"\n";
  try {
    const Bookmarks found = bookmarksOf(templateAsRtf(file));
    addLines(report.text, u"Marcadores que se rellenan:", found.marks,
             [](const Text& name) { return remarkOn(*documentMark(name)); });
    addLines(report.text, u"Marcadores desconocidos, que se quedan como están:", found.unknown, proposalFor);
    if (found.marks.empty()) report.text += u"No tiene ningún marcador que rellenar.\n";
    report.good = !found.marks.empty() && found.unknown.empty();
    if (report.good) report.text += u"La plantilla está bien.\n";
  } catch (const TemplateFailure& failure) {
    report.text += failure.message + u"\n";
  } catch (...) {
    report.text += currentFailure().description() + u"\n";
  }
  return report;
}

Text templateSummary(const fs::path& file) {
  try {
    const std::string bytes = templateBytes(file);
    if (isForeignFormat(bytes)) return u"En el formato de un procesador de textos: se convertirá al usarla.";
    const Bookmarks found = bookmarksOf(bytes);
    return found.marks.empty() ? Text(u"No tiene ningún dato que rellenar.")
                               : u"Datos: " + joinValues(found.marks);
  } catch (const TemplateFailure& failure) {
    return failure.message;
  } catch (...) {
    return currentFailure().description();
  }
}

}  // namespace ovalia::host
