#include "worldmodel/FallRule.h"

#include <string>

#include "utilities/config/Config.h"
#include "utilities/config/ConfigError.h"

namespace {

const std::string kConfiguration = "WorldModelParameters";
const std::string kGroup = "Fall";
const std::string kKey = "Rule";
const std::string kAttitude = "Attitude";
const std::string kLandmarks = "Landmarks";

}  // namespace

FallRule readFallRule(const Config& store) {
    if (!store.exists(kConfiguration)) {
        return FallRule::Landmarks;
    }
    const ConfigFile& file = store[kConfiguration];
    if (!file.exists(kGroup) || !file[kGroup].exists(kKey)) {
        return FallRule::Landmarks;
    }
    const ConfigValue& value = file[kGroup][kKey];
    const std::string& text = value.asString();
    if (text == kAttitude) {
        return FallRule::Attitude;
    }
    if (text == kLandmarks) {
        return FallRule::Landmarks;
    }
    std::string where = checkValueLocation(kConfiguration, kGroup, kKey);
    if (!value.getSourceFile().empty()) {
        where = checkFileLocation(value.getSourceFile(), value.getSourceLine()) + ", " + where;
    }
    failCheck(
        "Rule == \"Attitude\" || Rule == \"Landmarks\"", "FallRule", __LINE__, __PRETTY_FUNCTION__,
        where + ": \"" + text + "\" is neither \"" + kAttitude + "\" nor \"" + kLandmarks + "\"");
}
