#include "worldmodel/Share.h"

Command* Share::lastCommand = nullptr;
bool Share::bodyDir = false;

void Share::resetState() {
    lastCommand = nullptr;
    bodyDir = false;
}
