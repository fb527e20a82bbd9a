#include "skills/dive/LeftDiv.h"

#include "skills/dive/DivePosture.h"
#include "worldmodel/WorldModel.h"

float LeftDiv::time = -1.0F;

LeftDiv::LeftDiv(const WorldModel* wm) {
    if (time == -1.0F) {
        time = wm->getTime();
    }
    finished = dive::isDiveOver(time, wm->getTime());
    command = dive::buildDiveCommand(*wm, true);
}
