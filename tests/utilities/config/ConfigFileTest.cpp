#include "utilities/config/ConfigFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Expected.h"
#include "support/Files.h"
#include "utilities/config/Config.h"
#include "utilities/config/ConfigSetting.h"
#include "utilities/config/Settings.h"

namespace {

const char* const kReadFile = "virtual void ConfigFile::readFile(const std::string&)";

// Every key of every group, "[group] key=<value>" one a line, in the configuration's order.
std::string dump(const ConfigFile& file) {
    std::string text;
    for (const auto& [group, keys] : file.getGroups()) {
        for (const auto& [key, value] : keys.getValues()) {
            text.append("[").append(group).append("] ").append(key).append("=<");
            text.append(value.asString()).append(">\n");
        }
    }
    return text;
}

class ConfigFileTest : public ::testing::Test {
protected:
    void SetUp() override { Config::resetState(); }

    ConfigFile read(const std::string& content) {
        ConfigFile file;
        file.setByFile(dir.write("test.conf", content));
        return file;
    }

    support::ScratchDirectory dir;
};

struct ParseCase {
    const char* text;
    const char* keys;
};

TEST_F(ConfigFileTest, ReadsKeysGroupsAndComments) {
    const ParseCase cases[] = {
        {"# heading\n\n   \n\t\n#x = 1\n", ""},
        {"[G]\nkey = a   b\tc  \n", "[G] key=<a   b\tc>\n"},
        {"[G]\n \t key\t =\t 12 \t\nother=x=y\n", "[G] key=<12>\n[G] other=<x=y>\n"},
        {"[G] # the group\nx = 1 # one\ny = 2#two\n# x = 3\n", "[G] x=<1>\n[G] y=<2>\n"},
        {"[G]\n[\n  x  \n]\n=\nk = v\n", "[G] k=<v>\n"},
        {"top = 1\n[G]\ninner = 2\n", "[] top=<1>\n[G] inner=<2>\n"},
        {"[Server]\na = 1\n  [ Server ]  \nb = 2\n[]\nc = 3\n",
         "[] c=<3>\n[ Server ] b=<2>\n[Server] a=<1>\n"},
        {"[A]\nx = 1\ny = old\n[B]\nz = 0\n[A]\ny = new value\n",
         "[A] x=<1>\n[A] y=<new value>\n[B] z=<0>\n"},
        {"[G]\nlast = 7", "[G] last=<7>\n"},
        {"[G]\nport = 3100\r\n\r\n", "[G] port=<3100\r>\n"},
    };
    for (const ParseCase& c : cases) {
        EXPECT_EQ(dump(read(c.text)), c.keys) << c.text;
    }
}

TEST_F(ConfigFileTest, ASecondFileMergesAndLaterKeysWin) {
    ConfigFile file = read("[A]\nx = 1\ny = 2\n");
    file.setByFile(dir.write("second.conf", "[A]\ny = 20\n[B]\nz = 3\n"));
    EXPECT_EQ(dump(file), "[A] x=<1>\n[A] y=<20>\n[B] z=<3>\n");
}

struct ErrorCase {
    const char* text;
    const char* condition;
    int line;
    const char* extra;
};

TEST_F(ConfigFileTest, FormatErrorsNameTheFileAndLine) {
    const ErrorCase cases[] = {
        {"[G]\r\nport = 3100\r\n", "line[ve] == ']'", 1, ""},
        {"# c\n\n[Server\n", "line[ve] == ']'", 3, ""},
        {"[Server # ]\n", "line[ve] == ']'", 1, ""},
        {"[G]\nab\n", "qpos != string::npos && qpos < cpos", 2, ""},
        {"[G]\nk = 1\n # x = 1\n", "qpos != string::npos && qpos < cpos", 3, ""},
        {"[G]\n  = 5\n", "name != \"\"", 2, ""},
        {"[G]\na = 1\nkey =\n", "value != \"\"", 3, ", key \"key\" has no value"},
        {"[G]\nkey =   # nothing\n", "value != \"\"", 2, ", key \"key\" has no value"},
    };
    for (const ErrorCase& c : cases) {
        EXPECT_EXIT(read(c.text), ::testing::ExitedWithCode(1),
                    support::checkDiagnosticPattern("Config", kReadFile, c.condition,
                                                    "file \"" + dir.path() + "/test.conf\", line " +
                                                        std::to_string(c.line) + c.extra))
            << c.text;
    }
    const std::string missing = dir.path() + "/missing.conf";
    EXPECT_EXIT(read("").setByFile(missing), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", kReadFile, "fin",
                                                "file \"" + missing + "\" cannot be opened"));
    EXPECT_EXIT(read("").setByFile(dir.path()), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", kReadFile, "!isDirectory",
                                                "file \"" + dir.path() + "\" is a directory"));
}

TEST_F(ConfigFileTest, MissingNamesAreFatalAndNamed) {
    config.add("Srv", dir.write("s.conf", "[Server]\nVersion = 1\n"));
    EXPECT_EXIT(config["Nope"], ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "Config", "ConfigFile& Config::ConfigFiles::operator[](const std::string&)",
                    "it != files.end()", "configuration \"Nope\" is not registered"));
    EXPECT_EXIT(
        config["Srv"]["Connection"], ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Config", "ConfigGroup& ConfigFile::operator[](const std::string&)",
            "it != groups.end()", "configuration \"Srv\", group \"Connection\" is missing"));
    EXPECT_EXIT(config["Srv"]["Server"]["Port"], ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "Config", "ConfigValue& ConfigGroup::operator[](const std::string&)",
                    "it != values.end()",
                    "configuration \"Srv\", group \"Server\", key \"Port\" is missing"));
    Config::resetState();
    EXPECT_FALSE(config.exists("Srv"));
}

struct ArgumentsCase {
    std::vector<std::string> arguments;
    bool accepted;
    const char* keys;  // of ServerInitialize, then of LoggerInitialize
};

TEST(ConfigArgumentsTest, OptionsWriteTheirKeysOrPrintTheUsage) {
    const ArgumentsCase cases[] = {
        {{}, true, ""},
        {{"--coach"}, true, ""},
        {{"--number", "2", "--host", "10.0.0.5", "--port", "3200", "--coach-port", "3300", "--team",
          "Korvel", "--random-seed", "17"},
         true,
         "[Connection] HostName=<10.0.0.5>\n[Connection] Port=<3200>\n"
         "[Public] RandomSeed=<17>\n[Public] TeamName=<Korvel>\n[Public] UniformNum=<2>\n"
         "[Server] CoachPort=<3300>\n"},
        {{"--goalie", "--offline"},
         true,
         "[Public] IsGoalie=<True>\n[Server] OfflinePlaying=<True>\n[Logger] Offline=<True>\n"},
        {{"--port", "3101", "--port", "3102"}, true, "[Connection] Port=<3102>\n"},
        {{"--team", "--goalie"}, true, "[Public] TeamName=<--goalie>\n"},
        {{"--player-port", "3100"}, false, ""},
        {{"--number", "3", "--bogus", "--host", "h"}, false, "[Public] UniformNum=<3>\n"},
        {{"--goalie", "--host"}, false, "[Public] IsGoalie=<True>\n"},
        {{""}, false, ""},
    };
    for (const ArgumentsCase& c : cases) {
        ConfigFile server;
        ConfigFile logger;
        for (const char* group : {"Public", "Server", "Connection"}) {
            server.addGroup(group);
        }
        logger.addGroup("Logger");
        std::vector<std::string> words{"./korvel"};
        words.insert(words.end(), c.arguments.begin(), c.arguments.end());
        std::vector<char*> argv;
        argv.reserve(words.size() + 1);
        for (std::string& word : words) {
            argv.push_back(word.data());
        }
        argv.push_back(nullptr);
        ::testing::internal::CaptureStdout();
        const bool accepted =
            server.setByArguments(static_cast<int>(argv.size() - 1), argv.data(), logger);
        const std::string printed = ::testing::internal::GetCapturedStdout();
        const std::string what = words.size() > 1 ? words[1] : "(none)";
        EXPECT_EQ(accepted, c.accepted) << what;
        EXPECT_EQ(printed.empty(), c.accepted) << what;  // the usage text, pinned end to end
        EXPECT_EQ(dump(server) + dump(logger), c.keys) << what;
    }
}

// Typed settings are read once, and again whenever the configuration changes: a key written
// (as the command line does), a file read again, or the whole store emptied and reloaded.
TEST_F(ConfigFileTest, SettingsFollowEveryChangeOfTheConfiguration) {
    config.add("ServerInitialize", dir.write("server.conf",
                                             "[Server]\nOfflinePlaying = false\nVersion = 0.7.4\n"
                                             "[Public]\nUniformNum = 2\n"));
    EXPECT_FALSE(settings::offlinePlaying());
    EXPECT_EQ(settings::uniformNumber(), 2);
    EXPECT_EQ(settings::serverVersion(), "0.7.4");

    config["ServerInitialize"]["Server"].add("OfflinePlaying", "True");
    config["ServerInitialize"]["Public"].add("UniformNum", "3");
    EXPECT_TRUE(settings::offlinePlaying());
    EXPECT_EQ(settings::uniformNumber(), 3);

    config.add("ServerInitialize", dir.write("again.conf", "[Public]\nUniformNum = 1\n"));
    EXPECT_EQ(settings::uniformNumber(), 1);

    Config::resetState();
    config.add("ServerInitialize", dir.write("other.conf", "[Server]\nVersion = 6.0.0\n"));
    EXPECT_EQ(settings::serverVersion(), "6.0.0");
    Config::resetState();
}

TEST_F(ConfigFileTest, ASettingOfEachType) {
    config.add("C", dir.write("c.conf",
                              "[G]\nf = 0.25\ni = 7\nb = 1\nB = TRUE\nno = yes\n"
                              "s = two words\n"));
    EXPECT_EQ(ConfigSetting<float>("C", "G", "f").get(), 0.25F);
    EXPECT_EQ(ConfigSetting<int>("C", "G", "i").get(), 7);
    EXPECT_TRUE(ConfigSetting<bool>("C", "G", "b").get());
    EXPECT_TRUE(ConfigSetting<bool>("C", "G", "B").get());
    EXPECT_FALSE(ConfigSetting<bool>("C", "G", "no").get());  // true only for "true" or "1"
    EXPECT_EQ(ConfigSetting<std::string>("C", "G", "s").get(), "two words");
    Config::resetState();
}

}  // namespace
