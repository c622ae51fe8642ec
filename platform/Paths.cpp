#include <algorithm>

#include "platform/Platform.h"

namespace ovalia {

Text nativePath(TextView path) {
  Text native = logicPath(path);
  std::replace(native.begin(), native.end(), u'\\', u'/');
  native.erase(std::unique(native.begin(), native.end(),
                           [](char16_t a, char16_t b) { return a == u'/' && b == u'/'; }),
               native.end());
  return native;
}

Text logicPath(TextView path) {
  Text logic(path);
  std::replace(logic.begin(), logic.end(), u'/', u'\\');
  return logic;
}

}  // namespace ovalia
