#include "utilities/Basics.h"

#include <iostream>

namespace basics {

namespace {

constexpr std::string::size_type kTagColumn = 100;  // the tag starts in the column after this

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

void printStatusLine(const std::string& text, bool ok) {
    std::cout << statusLine(text, ok) << std::flush;
}

}  // namespace

std::string statusText(const std::string& text) {
    // An empty first word (the text starts with a blank) still counts as an argument of echo, so
    // it leads to one blank before the first real word.
    std::string out;
    bool firstArgument = text.empty() || !isBlank(text.front());
    std::string::size_type i = 0;
    while (i < text.size()) {
        while (i < text.size() && isBlank(text[i])) {
            ++i;
        }
        if (i == text.size()) {
            break;
        }
        const std::string::size_type start = i;
        while (i < text.size() && !isBlank(text[i])) {
            ++i;
        }
        if (!firstArgument) {
            out += ' ';
        }
        out.append(text, start, i - start);
        firstArgument = false;
    }
    return out;
}

std::string statusLine(const std::string& text, bool ok) {
    std::string line = statusText(text);
    if (text.size() < kTagColumn) {
        line.append(kTagColumn - text.size(), ' ');
    }
    line += ok ? "[\033[0;32m   OK   \033[0;39m]\n" : "[\033[0;31m Failed \033[0;39m]\n";
    return line;
}

void WarnLoadingTrue(const std::string& text) {
    printStatusLine(text, true);
}

void WarnLoadingFalse(const std::string& text) {
    printStatusLine(text, false);
}

char uniNumToChar(unsigned int n) {
    if (n <= 9) {
        return static_cast<char>('0' + n);
    }
    return static_cast<char>('A' + (n - 10));
}

int charToUniNum(char c) {
    if (c > 64) {
        return c - 55;
    }
    return c - 48;
}

bool isInPlayers(unsigned int n, const std::string& players) {
    return players.find(uniNumToChar(n)) != std::string::npos;
}

}  // namespace basics
