#include "system/SystemFailure.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace ovalia::system {

namespace {

struct Meaning {
  int error;
  std::int32_t number;
};

constexpr Meaning meanings[] = {
    {ENOENT, failure::fileNotFound},      {ENOTDIR, failure::pathNotFound},
    {EEXIST, failure::fileAlreadyExists}, {ENOSPC, failure::diskFull},
    {EDQUOT, failure::diskFull},          {EFBIG, failure::diskFull},
    {EACCES, failure::permissionDenied},  {EPERM, failure::permissionDenied},
    {EROFS, failure::permissionDenied},
};

}  // namespace

Failure failureOf(int error, TextView path) {
  const auto found = std::find_if(std::begin(meanings), std::end(meanings),
                                  [=](const Meaning& m) { return m.error == error; });
  const std::int32_t number = found == std::end(meanings) ? failure::pathFileAccess : found->number;
  return Failure(number, failureText(number) + u" (" + Text(path) + u")");
}

}  // namespace ovalia::system
