#include "utilities/config/Str.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace {

float toFloat(const std::string& text) {
    if (text == "nan") {
        return 0.0F;
    }
    return std::strtof(text.c_str(), nullptr);
}

}  // namespace

Str::Str(const math::Vector3<float>& v)
    : value(Str(v.x).value + "|" + Str(v.y).value + "|" + Str(v.z).value + "|") {}

std::string Str::b_value(const std::string& /*type*/) const {
    return value;
}

float Str::b_value(float /*type*/) const {
    return toFloat(value);
}

double Str::b_value(double /*type*/) const {
    return std::strtod(value.c_str(), nullptr);
}

int Str::b_value(int /*type*/) const {
    return static_cast<int>(std::strtol(value.c_str(), nullptr, 10));
}

unsigned int Str::b_value(unsigned int /*type*/) const {
    return static_cast<unsigned int>(b_value(0));
}

bool Str::b_value(bool /*type*/) const {
    std::string lower = value;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower == "true" || lower == "1";
}

char Str::b_value(char /*type*/) const {
    return value.empty() ? '\0' : value[0];
}

math::Vector3<float> Str::b_value(const math::Vector3<float>& /*type*/) const {
    const std::vector<float> list = b_value(std::vector<float>());
    auto element = [&list](std::size_t i) { return i < list.size() ? list[i] : 0.0F; };
    return {element(0), element(1), element(2)};
}

template <>
std::vector<float> Str::b_value<float>(const std::vector<float>& /*type*/) const {
    std::vector<float> list;
    if (value.find('|') == std::string::npos) {
        return list;
    }
    std::string::size_type begin = 0;
    while (begin < value.size()) {
        const std::string::size_type end = value.find('|', begin);
        if (end == std::string::npos) {
            // The last element lacks its "|": keep it rather than lose a value.
            list.push_back(toFloat(value.substr(begin)));
            break;
        }
        list.push_back(toFloat(value.substr(begin, end - begin)));
        begin = end + 1;
    }
    return list;
}
