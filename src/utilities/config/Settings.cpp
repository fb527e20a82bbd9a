#include "utilities/config/Settings.h"

#include "utilities/config/ConfigSetting.h"

namespace settings {

bool offlinePlaying() {
    static const ConfigSetting<bool> setting("ServerInitialize", "Server", "OfflinePlaying");
    return setting.get();
}

const std::string& serverVersion() {
    static const ConfigSetting<std::string> setting("ServerInitialize", "Server", "Version");
    return setting.get();
}

int uniformNumber() {
    static const ConfigSetting<int> setting("ServerInitialize", "Public", "UniformNum");
    return setting.get();
}

float fieldLength() {
    static const ConfigSetting<float> setting("WorldModelParameters", "Field", "Length");
    return setting.get();
}

float fieldWidth() {
    static const ConfigSetting<float> setting("WorldModelParameters", "Field", "Width");
    return setting.get();
}

float goalWidth() {
    static const ConfigSetting<float> setting("WorldModelParameters", "Field", "GoalWidth");
    return setting.get();
}

float ballRadius() {
    static const ConfigSetting<float> setting("WorldModelParameters", "Ball", "Radius");
    return setting.get();
}

}  // namespace settings
