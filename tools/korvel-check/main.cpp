// korvel-check [DIR]: loads the configuration index and every skill file it lists from a Data
// tree, reports what is wrong, and exits with status 1 on any error. DIR is the Data tree itself
// or a directory holding one (default: the working directory's ./Data). Warnings (speeds above
// what the motors can do) do not change the status.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "skills/SkillChecker.h"

int main(int argc, char** argv) {
    if (argc > 2) {
        std::cerr << "usage: korvel-check [DIR]\n"
                  << "  Checks the skill files of the Data tree DIR, or of DIR/Data (default: "
                     "./Data).\n";
        return 2;
    }
    std::string dataDirectory = argc == 2 ? argv[1] : "./Data";
    std::error_code ignored;
    if (!std::filesystem::is_directory(dataDirectory + "/ConfigurationData", ignored) &&
        std::filesystem::is_directory(dataDirectory + "/Data/ConfigurationData", ignored)) {
        dataDirectory += "/Data";
    }
    const SkillChecker::Report report = SkillChecker::check(dataDirectory);
    std::cout << SkillChecker::format(report);
    return report.errorCount() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
