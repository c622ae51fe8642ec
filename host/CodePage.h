#pragma once

#include <string>

#include "platform/Text.h"

namespace ovalia::host {

// Bytes in a code page, by its number: 1252, 850, 65001. One that is not known is taken for the western one;
// what stands for no letter becomes U+FFFD.
Text fromCodePage(int number, std::string bytes);

}  // namespace ovalia::host
