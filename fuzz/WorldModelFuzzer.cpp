// Arbitrary bytes into the message parser and the world model. Any crash, sanitizer report,
// endless loop or uncaught exception is a fault: a server message, however broken, is either
// taken in or dropped with a line on "Main".
//
// The input is read twice: as one text for the parser, and split at line feeds into a sequence
// of messages for one fresh world model (the recordings hold one message per line).
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>

#include "utilities/config/Config.h"
#include "utilities/logging/LogStream.h"
#include "utilities/logging/Logger.h"
#include "utilities/parsing/SExpError.h"
#include "utilities/parsing/SExpression.h"
#include "worldmodel/Self.h"
#include "worldmodel/Share.h"
#include "worldmodel/WorldModel.h"

namespace {

// Formats everything written to it and keeps nothing (no buffer: every write just fails).
std::ostream discard(nullptr);

void setConfig(const std::string& name, const std::string& group, const std::string& key,
               const std::string& value) {
    config.add(name);
    config[name].addGroup(group);
    config[name][group].add(key, value);
}

// Walks the whole tree through the readers' operations.
std::size_t walk(const SExpression& list) {
    std::size_t atoms = 0;
    for (unsigned int i = 0; i < list.size(); ++i) {
        const SExpElement* element = list[i];
        if (element->is<SExpression>()) {
            const auto& child = element->as<SExpression>();
            atoms += walk(child);
            if (child.size() > 0 && child[0]->is<SExpAtomic>()) {
                const std::string header = child[0]->toString();
                atoms += list[header].size();
                atoms += static_cast<std::size_t>(list.numSExpWithHeader(header));
                if (list.firstWithHeader(header) == nullptr) {
                    __builtin_trap();  // indexed child lists must be found by their header
                }
            }
        } else {
            const Str& value = list.atomAt(i).getValue();
            atoms += static_cast<std::size_t>(value.b_value(0.0F) != 0.0F);
        }
    }
    return atoms;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    setConfig("ServerInitialize", "Server", "OfflinePlaying", "false");
    setConfig("WorldModelParameters", "Field", "Length", "30");
    setConfig("WorldModelParameters", "Field", "Width", "20");
    setConfig("WorldModelParameters", "Field", "GoalWidth", "2.1");
    setConfig("WorldModelParameters", "Ball", "Radius", "0.042");
    logger.add("Main", new LogStream(&discard, nullptr), true);
    logger.add("MainOff", new LogStream(&discard, nullptr), false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);

    try {
        const auto root = SExpression::parse(text);
        walk(*root);
        static_cast<void>(root->toString());
    } catch (const SExpError&) {
        // Malformed text is reported by this exception; readers drop such messages.
    }

    Self::resetState();
    Share::resetState();
    WorldModel wm;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) {
            end = text.size();
        }
        wm.update(text.substr(start, end - start));
        start = end + 1;
    }
    return 0;
}
