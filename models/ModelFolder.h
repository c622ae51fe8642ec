#pragma once

#include "platform/Variant.h"

namespace ovalia {

// The folder of the models and templates below a user's data folder, in full, with its final "\".
inline Text modelFolder(TextView dataFolder) { return join(dataFolder, u"\\Plantillas\\"); }

}  // namespace ovalia
