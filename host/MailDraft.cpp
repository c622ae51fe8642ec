#include "host/MailDraft.h"

#include <set>

#include "attachments/StoredNames.h"
#include "desktop/MailDelivery.h"
#include "host/Marks.h"
#include "host/Queries.h"
#include "platform/Platform.h"

namespace ovalia::host {

namespace {

constexpr TextView separator = u" , ";

std::vector<Text> pieces(TextView text) {
  std::vector<Text> found;
  for (std::size_t end; (end = text.find(separator)) != TextView::npos;
       text.remove_prefix(end + separator.size()))
    found.emplace_back(text.substr(0, end));
  found.emplace_back(text);
  return found;
}

Text joined(const std::vector<Text>& pieces, std::size_t from, std::size_t count) {
  Text text = pieces[from];
  for (std::size_t i = from + 1; i < from + count; ++i) text.append(separator).append(pieces[i]);
  return text;
}

bool isFile(TextView path) {
  try {
    return !Platform::current().files->firstMatch(path).empty();
  } catch (const Failure&) {
    return false;
  }
}

bool beginsPath(TextView piece) { return piece.starts_with(u'\\') || piece.starts_with(u'/'); }

// How many pieces make up the path that begins at one: the fewest that name a file. One that is missing ends
// where the next begins.
std::size_t lengthOfPath(const std::vector<Text>& pieces, std::size_t from) {
  const std::size_t left = pieces.size() - from;
  for (std::size_t count = 1; count <= left; ++count)
    if (isFile(joined(pieces, from, count))) return count;
  std::size_t count = 1;
  while (count < left && !beginsPath(pieces[from + count])) ++count;
  return count;
}

std::vector<Text> pathsIn(TextView text) {
  std::vector<Text> paths;
  if (text.empty()) return paths;
  const auto parts = pieces(text);
  for (std::size_t at = 0; at < parts.size();) {
    const std::size_t count = lengthOfPath(parts, at);
    paths.push_back(joined(parts, at, count));
    at += count;
  }
  return paths;
}

bool extensionsAgree(TextView shown, TextView path) {
  return sameName(storedExtension(lastFour(shown)), lastFour(path));
}

// Puts the names' pieces together so that there is one for each path, the extensions agreeing; the first way
// to do so counts. A place from which the rest did not come out is not tried again.
class Distribution {
 public:
  Distribution(const std::vector<Text>& parts, const std::vector<Text>& paths)
      : parts_(parts), paths_(paths) {}

  bool from(std::size_t at) {
    const std::size_t open = paths_.size() - names.size(), left = parts_.size() - at;
    if (open == 0) return left == 0;
    if (hopeless_.contains({at, open})) return false;
    for (std::size_t count = 1; count + open - 1 <= left; ++count) {
      names.push_back(joined(parts_, at, count));
      if (extensionsAgree(names.back(), paths_[names.size() - 1]) && from(at + count)) return true;
      names.pop_back();
    }
    hopeless_.insert({at, open});
    return false;
  }

  std::vector<Text> names;

 private:
  const std::vector<Text>&parts_, &paths_;
  std::set<std::pair<std::size_t, std::size_t>> hopeless_;
};

std::vector<Text> namesIn(TextView text, const std::vector<Text>& paths) {
  if (text.ends_with(u'.')) text.remove_suffix(1);
  const auto parts = pieces(text);
  if (parts.size() == paths.size()) return parts;
  Distribution distribution(parts, paths);
  if (!distribution.from(0)) return std::vector<Text>(paths.size());
  return distribution.names;
}

// The address of the settings, or that of whoever works here.
Text sender(const Workplace& workplace) {
  if (Text set = desktop::configuredSender(); !set.empty()) return set;
  const auto rows = workplace.agency.database->OpenRecordset(
      u"SELECT Correo FROM Usuario WHERE Nombre = " + literal(workplace.agency.user), dao::dbOpenSnapshot);
  return rows->isEOF() ? Text() : rows->value(u"Correo").text();
}

}  // namespace

std::vector<desktop::MailAttachment> listedDocuments(TextView names, TextView paths) {
  const auto files = pathsIn(paths);
  const auto shown = namesIn(names, files);
  std::vector<desktop::MailAttachment> documents;
  for (std::size_t i = 0; i < files.size(); ++i) documents.push_back({logicPath(files[i]), shown[i]});
  return documents;
}

desktop::MailMessage mailDraft(const Workplace& workplace, const Variant& marks, const Variant& values) {
  const auto text = [&](TextView mark) { return markText(marks, values, mark); };
  return {sender(workplace),
          {},
          text(u"Asunto"),
          text(u"Notas"),
          listedDocuments(text(u"Adjunto"), text(u"AdjuntoEMail"))};
}

}  // namespace ovalia::host
