// WorldModel::update over real server messages, localisation included, with "Main" discarding
// (no stream registered under that name). Items are messages, so the rate is messages per
// second.
#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <vector>

#include "utilities/config/Config.h"
#include "utilities/parsing/SExpression.h"
#include "worldmodel/PerceptReader.h"
#include "worldmodel/WorldModel.h"

namespace {

std::vector<std::string> readMessages(const std::string& name) {
    std::ifstream in(std::string(KORVEL_TEST_DATA_DIR) + "/" + name);
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(in, line)) {
        lines.push_back(line);
    }
    return lines;
}

void configure() {
    auto set = [](const std::string& name, const std::string& group, const std::string& key,
                  const std::string& value) {
        config.add(name);
        config[name].addGroup(group);
        config[name][group].add(key, value);
    };
    set("ServerInitialize", "Server", "OfflinePlaying", "true");
    set("WorldModelParameters", "Field", "Length", "30");
    set("WorldModelParameters", "Field", "Width", "20");
    set("WorldModelParameters", "Field", "GoalWidth", "2.1");
    set("WorldModelParameters", "Ball", "Radius", "0.042");
}

const std::vector<std::string>& messages(int file) {
    static const std::vector<std::string> sample = readMessages("server-messages-sample.txt");
    static const std::vector<std::string> session = readMessages("real-session-3200.txt");
    return file == 0 ? sample : session;
}

// The whole update of every message of a recording, in order.
void BM_Update(benchmark::State& state) {
    configure();
    const std::vector<std::string>& lines = messages(static_cast<int>(state.range(0)));
    WorldModel wm;
    for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the library idiom
        for (const std::string& line : lines) {
            benchmark::DoNotOptimize(wm.update(line));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
    state.SetLabel(state.range(0) == 0 ? "sample (73)" : "session (3200)");
}
BENCHMARK(BM_Update)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// Only the parse of the same messages, to see the share of the tree building.
void BM_Parse(benchmark::State& state) {
    const std::vector<std::string>& lines = messages(static_cast<int>(state.range(0)));
    std::string why;
    for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the library idiom
        for (const std::string& line : lines) {
            benchmark::DoNotOptimize(PerceptReader::parseMessage(line, why));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
}
BENCHMARK(BM_Parse)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// Parse and read (everything but applying), to separate reading from localisation.
void BM_ParseAndRead(benchmark::State& state) {
    const std::vector<std::string>& lines = messages(static_cast<int>(state.range(0)));
    std::string why;
    Percepts percepts;
    for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the library idiom
        for (const std::string& line : lines) {
            const auto root = PerceptReader::parseMessage(line, why);
            benchmark::DoNotOptimize(PerceptReader::readMessage(*root, percepts, why));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
}
BENCHMARK(BM_ParseAndRead)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
