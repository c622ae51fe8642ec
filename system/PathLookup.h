#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Text.h"

// From the logic's paths to names on disk. Disk paths are the bytes the system knows a file by, absolute.
namespace ovalia::system {

// What stands at a disk path; links are followed.
bool isFolder(const std::string& file);
bool isPlainFile(const std::string& file);

// Failure 76 for a path that does not begin at the root: a bare name, a drive letter; 75 for one with a zero
// character in it. All routines below check their paths so.
void checkPath(TextView path);

// What there is at a "\"-separated path, by the disk's own spelling. Each component is looked up exactly
// first, then without regard to case; of several that differ in case only, the first by code. Nothing where
// something is missing.
std::optional<std::string> locate(TextView path);

// The same for what must be there: 53 when only the last component is missing, else 76. A plain file is not
// there by a path that ends in a separator: 76.
std::string existing(TextView path);

// Where a file is or can be made: the one that is there, by its own spelling, else a new name as written in
// the folder found. 76 when there is no such folder, 75 when the path names a folder.
std::string writable(TextView path);

// The folder of a path and its last component, which may be a mask; doubled separators count as one. A path
// that ends in a separator has the empty last component where `keepEnd`, else its last component is the
// folder's name.
struct SplitPath {
  Text folder;
  Text last;
};
SplitPath splitPath(TextView path, bool keepEnd = false);

// Whether a name fits a mask without regard to case: "*" any run of characters, "?" exactly one, all others
// themselves.
bool fitsMask(TextView name, TextView mask);

// Names of a folder's entries, all or those wanted, as the disk has them, in the order of their names without
// regard to case. 76 when it is no folder, 70 when it may not be read.
struct DiskName {
  std::string bytes;
  Text text;
};
std::vector<DiskName> namesIn(const std::string& folder,
                              const std::function<bool(TextView name)>& wanted = {});

}  // namespace ovalia::system
