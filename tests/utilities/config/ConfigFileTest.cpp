#include "utilities/config/ConfigFile.h"

#include <gtest/gtest.h>

#include "support/CheckDiagnostic.h"
#include "support/ScratchDirectory.h"
#include "utilities/config/Config.h"

namespace {

const char* const kReadFile = "virtual void ConfigFile::readFile(const std::string&)";

class ConfigFileTest : public ::testing::Test {
protected:
    void SetUp() override { Config::resetState(); }

    // Reads `content` as a file named "test.conf" into a fresh ConfigFile.
    ConfigFile read(const std::string& content) {
        ConfigFile file;
        file.setByFile(dir.write("test.conf", content));
        return file;
    }

    // The diagnostic of a format error in test.conf at `line`.
    std::string formatError(const std::string& condition, int line, const std::string& extra = "") {
        return support::checkDiagnosticPattern(
            "Config", kReadFile, condition,
            "file \"" + dir.path() + "/test.conf\", line " + std::to_string(line) + extra);
    }

    support::ScratchDirectory dir;
};

TEST_F(ConfigFileTest, OnlyCommentsAndBlanksGiveOneEmptyGroup) {
    const ConfigFile file = read("# heading\n\n   \n\t\n#x = 1\n");
    ASSERT_EQ(file.getGroups().size(), 1U);
    EXPECT_TRUE(file.exists(""));
    EXPECT_TRUE(file[""].getValues().empty());
}

TEST_F(ConfigFileTest, NewFileHasNoGroupsUntilRead) {
    const ConfigFile file;
    EXPECT_TRUE(file.getGroups().empty());
    EXPECT_FALSE(file.exists(""));
}

TEST_F(ConfigFileTest, ValueIsSplitIntoWordsAndKeepsInnerBlanks) {
    const ConfigFile file = read("[G]\nkey = a   b\tc  \n");
    const ConfigValue& value = file["G"]["key"];
    ASSERT_EQ(value.size(), 3);
    EXPECT_EQ(value[0].b_value(std::string()), "a");
    EXPECT_EQ(value[1].b_value(std::string()), "b");
    EXPECT_EQ(value[2].b_value(std::string()), "c");
    EXPECT_EQ(value.asString(), "a   b\tc");
}

TEST_F(ConfigFileTest, BlanksAroundKeyAndValueAreDropped) {
    const ConfigFile file = read("[G]\n \t key\t =\t 12 \t\nother=x=y\n");
    EXPECT_EQ(file["G"]["key"].asString(), "12");
    EXPECT_EQ(file["G"]["key"].asInt(), 12);
    EXPECT_EQ(file["G"]["other"].asString(), "x=y");
}

TEST_F(ConfigFileTest, TrailingCommentsAreDropped) {
    const ConfigFile file = read("[G] # the group\nx = 1 # one\ny = 2#two\n# x = 3\n");
    EXPECT_EQ(file["G"]["x"].asString(), "1");
    EXPECT_EQ(file["G"]["y"].asString(), "2");
    EXPECT_EQ(file["G"].getValues().size(), 2U);
}

TEST_F(ConfigFileTest, SingleVisibleCharacterLinesAreIgnored) {
    const ConfigFile file = read("[G]\n[\n  x  \n]\n=\nk = v\n");
    EXPECT_EQ(file["G"].getValues().size(), 1U);
    EXPECT_EQ(file["G"]["k"].asString(), "v");
}

TEST_F(ConfigFileTest, KeysBeforeTheFirstHeaderGoToTheEmptyGroup) {
    const ConfigFile file = read("top = 1\n[G]\ninner = 2\n");
    EXPECT_EQ(file[""]["top"].asInt(), 1);
    EXPECT_FALSE(file[""].exists("inner"));
    EXPECT_EQ(file["G"]["inner"].asInt(), 2);
    EXPECT_FALSE(file["G"].exists("top"));
}

TEST_F(ConfigFileTest, GroupNamesAreTakenExactlyAsWritten) {
    const ConfigFile file = read("[Server]\na = 1\n  [ Server ]  \nb = 2\n[]\nc = 3\n");
    EXPECT_TRUE(file["Server"].exists("a"));
    EXPECT_FALSE(file["Server"].exists("b"));
    EXPECT_TRUE(file[" Server "].exists("b"));
    EXPECT_EQ(file[""]["c"].asInt(), 3);
}

TEST_F(ConfigFileTest, RepeatedHeaderContinuesTheGroupAndLastDefinitionWins) {
    const ConfigFile file = read("[A]\nx = 1\ny = old\n[B]\nz = 0\n[A]\ny = new value\n");
    EXPECT_EQ(file["A"]["x"].asInt(), 1);
    EXPECT_EQ(file["A"]["y"].asString(), "new value");
    EXPECT_EQ(file["A"]["y"].size(), 2);
    EXPECT_EQ(file["B"]["z"].asInt(), 0);
}

TEST_F(ConfigFileTest, LastLineWithoutNewlineIsRead) {
    const ConfigFile file = read("[G]\nlast = 7");
    EXPECT_EQ(file["G"]["last"].asInt(), 7);
}

TEST_F(ConfigFileTest, CarriageReturnIsAnOrdinaryVisibleCharacter) {
    const ConfigFile file = read("[G]\nport = 3100\r\n\r\n");
    EXPECT_EQ(file["G"]["port"].asString(), "3100\r");
    EXPECT_EQ(file["G"]["port"].asInt(), 3100);
    EXPECT_EXIT(read("[G]\r\nport = 3100\r\n"), ::testing::ExitedWithCode(1),
                formatError("line[ve] == ']'", 1));
}

TEST_F(ConfigFileTest, ReadingASecondFileMergesIntoTheSameConfiguration) {
    ConfigFile file = read("[A]\nx = 1\ny = 2\n");
    file.setByFile(dir.write("second.conf", "[A]\ny = 20\n[B]\nz = 3\n"));
    EXPECT_EQ(file["A"]["x"].asInt(), 1);
    EXPECT_EQ(file["A"]["y"].asInt(), 20);
    EXPECT_EQ(file["B"]["z"].asInt(), 3);
}

TEST_F(ConfigFileTest, ConstructorFromFileNameReadsIt) {
    const ConfigFile file(dir.write("a.conf", "[G]\nk = v\n"));
    EXPECT_EQ(file["G"]["k"].asString(), "v");
}

TEST_F(ConfigFileTest, AddGroupKeepsAnExistingGroup) {
    ConfigFile file = read("[G]\nk = v\n");
    file.addGroup("G");
    file.addGroup("H");
    EXPECT_EQ(file["G"]["k"].asString(), "v");
    EXPECT_TRUE(file["H"].getValues().empty());
}

TEST_F(ConfigFileTest, CopyDuplicatesGroupsAndValues) {
    const ConfigFile original = read("[G]\nk = v\n");
    ConfigFile copy = original;
    copy["G"].add("k", "changed");
    copy.addGroup("H");
    EXPECT_EQ(original["G"]["k"].asString(), "v");
    EXPECT_FALSE(original.exists("H"));
    EXPECT_EQ(copy["G"]["k"].asString(), "changed");
}

// A reader that records the files it was asked for, to see setByFile use the virtual slot.
class RecordingConfigFile : public ConfigFile {
public:
    void readFile(const std::string& fileName) override { lastFile = fileName; }
    std::string lastFile;
};

TEST_F(ConfigFileTest, SetByFileGoesThroughTheVirtualReader) {
    RecordingConfigFile file;
    file.setByFile("no/such/file.conf");
    EXPECT_EQ(file.lastFile, "no/such/file.conf");
}

// Every fatal format check, with the file and the 1-based line of the offending text.

TEST_F(ConfigFileTest, MissingFileIsFatal) {
    const std::string path = dir.path() + "/missing.conf";
    ConfigFile file;
    EXPECT_EXIT(file.setByFile(path), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", kReadFile, "fin",
                                                "file \"" + path + "\" cannot be opened"));
}

TEST_F(ConfigFileTest, DirectoryIsFatal) {
    ConfigFile file;
    EXPECT_EXIT(file.setByFile(dir.path()), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern("Config", kReadFile, "!isDirectory",
                                                "file \"" + dir.path() + "\" is a directory"));
}

TEST_F(ConfigFileTest, HeaderWithoutClosingBracketIsFatal) {
    EXPECT_EXIT(read("# c\n\n[Server\n"), ::testing::ExitedWithCode(1),
                formatError("line[ve] == ']'", 3));
    EXPECT_EXIT(read("[Server # ]\n"), ::testing::ExitedWithCode(1),
                formatError("line[ve] == ']'", 1));
}

TEST_F(ConfigFileTest, LineWithoutEqualsIsFatal) {
    EXPECT_EXIT(read("[G]\nab\n"), ::testing::ExitedWithCode(1),
                formatError("qpos != string::npos && qpos < cpos", 2));
}

TEST_F(ConfigFileTest, EqualsInsideACommentIsFatal) {
    EXPECT_EXIT(read("[G]\nkey # = 1\n"), ::testing::ExitedWithCode(1),
                formatError("qpos != string::npos && qpos < cpos", 2));
}

TEST_F(ConfigFileTest, IndentedCommentIsFatal) {
    EXPECT_EXIT(read("[G]\nk = 1\n # x = 1\n"), ::testing::ExitedWithCode(1),
                formatError("qpos != string::npos && qpos < cpos", 3));
}

TEST_F(ConfigFileTest, EmptyKeyIsFatal) {
    EXPECT_EXIT(read("[G]\n  = 5\n"), ::testing::ExitedWithCode(1), formatError("name != \"\"", 2));
}

TEST_F(ConfigFileTest, EmptyValueIsFatal) {
    EXPECT_EXIT(read("[G]\na = 1\nkey =\n"), ::testing::ExitedWithCode(1),
                formatError("value != \"\"", 3, ", key \"key\" has no value"));
    EXPECT_EXIT(read("[G]\nkey =   # nothing\n"), ::testing::ExitedWithCode(1),
                formatError("value != \"\"", 2, ", key \"key\" has no value"));
}

TEST_F(ConfigFileTest, ErrorsInAMergedFileNameThatFile) {
    ConfigFile file = read("[G]\nk = v\n");
    const std::string second = dir.write("second.conf", "[G]\nk = w\nbroken\n");
    EXPECT_EXIT(
        file.setByFile(second), ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern("Config", kReadFile, "qpos != string::npos && qpos < cpos",
                                        "file \"" + second + "\", line 3"));
}

}  // namespace
