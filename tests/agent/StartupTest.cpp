#include "agent/Startup.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <regex>
#include <string>

#include "support/Files.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Logger.h"

namespace {

namespace fs = std::filesystem;

mode_t currentUmask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

// Runs each test in a fresh temporary working directory holding ./Data/ConfigurationData/.
class StartupTest : public ::testing::Test {
protected:
    void SetUp() override {
        Config::resetState();
        Logger::resetState();
        fs::create_directories(dir.path() + "/Data/ConfigurationData");
        cwd = std::make_unique<support::ScopedChdir>(dir.path());
    }
    void TearDown() override {
        cwd.reset();
        Logger::resetState();
        Config::resetState();
    }

    void writeConfig(const std::string& name, const std::string& text) const {
        dir.write("Data/ConfigurationData/" + name + ".conf", text);
    }

    // The index and the two files the log set-up reads: "Main" and its recording on.
    void writeLoggerSetup(const std::string& directory) const {
        writeConfig("Config_FileAddresses",
                    "[DefultSet]\nConfigurationDataFileCount = 2\n"
                    "[ConfigurationDataFileName]\n1 = LoggerInitialize\n2 = ServerInitialize\n");
        writeConfig("LoggerInitialize",
                    "[Logger]\nDirectory = " + directory + "\nLogMain = true\nOffline = True\n");
        writeConfig("ServerInitialize",
                    "[Public]\nUniformNum = 1\n[Server]\nOfflinePlaying = false\n"
                    "[Connection]\nHostName = 127.0.0.1\nPort = 3100\n");
    }

    static std::string initializeQuietly() {
        testing::internal::CaptureStdout();
        ConfigInitializing();
        return testing::internal::GetCapturedStdout();
    }

    support::ScratchDirectory dir;
    std::unique_ptr<support::ScopedChdir> cwd;
};

TEST_F(StartupTest, LoadsTheIndexedFilesInOrderWithAStatusLineEach) {
    writeConfig("Config_FileAddresses",
                "[DefultSet]\nConfigurationDataFileCount = 2.9\n"
                "[ConfigurationDataFileName]\n1 = Second\n2 = First extra words\n3 = Third\n");
    writeConfig("First", "[G]\nk = first\n");
    writeConfig("Second", "[G]\nk = second\n");
    // "Third" has no file: a count of 2.9 never reaches it.

    const std::string out = initializeQuietly();

    EXPECT_EQ(out, " Loading Config_FileAdresses File: ./Data/ConfigurationData/Second.conf" +
                       std::string(29, ' ') +
                       "[\033[0;32m   OK   \033[0;39m]\n"
                       " Loading Config_FileAdresses File: ./Data/ConfigurationData/First.conf" +
                       std::string(30, ' ') + "[\033[0;32m   OK   \033[0;39m]\n");
    EXPECT_EQ(config["First"]["G"]["k"].asString(), "first");
    EXPECT_EQ(config["Second"]["G"]["k"].asString(), "second");
    EXPECT_FALSE(config.exists("Third"));
    EXPECT_EQ(config["Config_FileAdresses"]["ConfigurationDataFileName"]["3"].asString(), "Third");
}

TEST_F(StartupTest, MainIsStampedAndMainOffRecordsRawLines) {
    writeLoggerSetup("./Logs/");
    initializeQuietly();
    LoggersInitializing(1);

    logger["Main"] << "hello" << std::endl;
    logger["MainOff"] << "(time (now 0.02))" << std::endl;
    EXPECT_TRUE(logger["Main"].getShowBeginEnd());
    EXPECT_FALSE(logger["MainOff"].getShowBeginEnd());
    EXPECT_EQ(logger["Main"].timer(), startupTimer());

    const std::string main = support::readFile(dir.path() + "/Logs/Korvel-1.log");
    EXPECT_TRUE(std::regex_match(main, std::regex("  [0-9]{4,}\\. hello\n"))) << main;
    EXPECT_EQ(support::readFile(dir.path() + "/Logs/Korvel-1.log.offline"), "(time (now 0.02))\n");
    struct stat info {};
    ASSERT_EQ(stat((dir.path() + "/Logs").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0755U & ~currentUmask());
}

TEST_F(StartupTest, DirectoryWithoutFinalSlashGivesTheSameFiles) {
    writeLoggerSetup("./Logs");
    initializeQuietly();
    LoggersInitializing(7);
    EXPECT_TRUE(fs::exists(dir.path() + "/Logs/Korvel-7.log"));
    EXPECT_TRUE(fs::exists(dir.path() + "/Logs/Korvel-1.log.offline"));  // always number 1
    EXPECT_FALSE(fs::exists(dir.path() + "/Logs/Korvel-7.log.offline"));
}

}  // namespace
