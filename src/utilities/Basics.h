#pragma once

#include <string>

// Small helpers of start-up: the coloured console status lines and the one-character codes of
// uniform numbers.
namespace basics {

// The console text of a status line without its tag: `text` split into words at blanks (space,
// tab, newline) and joined by single blanks, as `echo -n ''<text>` would print it. A text that
// begins with a blank gets one leading blank; the words are taken literally.
std::string statusText(const std::string& text);
// The whole status line: statusText(text), blanks up to column 100 counted on the unsplit text
// (none when `text` has 100 characters or more), then "[" ESC "[0;32m" "   OK   " ESC "[0;39m"
// "]" and a newline; with `ok` false the tag is red (ESC "[0;31m") " Failed ".
std::string statusLine(const std::string& text, bool ok);

// Prints a green "   OK   " status line for `text` on the standard output.
void WarnLoadingTrue(const std::string& text);
// Prints a red " Failed " status line for `text` on the standard output.
void WarnLoadingFalse(const std::string& text);

// Base-36 digit of a uniform number: 0..9 give '0'..'9', 10 gives 'A', 11 'B' and so on.
char uniNumToChar(unsigned int n);
// The inverse for digits and capital letters ('A' is 10); other characters give
// (character code - 55) above code 64 and (character code - 48) otherwise, so 'a' gives 42.
int charToUniNum(char c);
// True when the code of uniform number `n` occurs in `players` (for example "1B5").
bool isInPlayers(unsigned int n, const std::string& players);

}  // namespace basics
