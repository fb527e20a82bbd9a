#include "skills/dive/RightDiv.h"

#include "skills/dive/DivePosture.h"
#include "worldmodel/WorldModel.h"

float RightDiv::time = -1.0F;

RightDiv::RightDiv(const WorldModel* wm) {
    if (time == -1.0F) {
        time = wm->getTime();
    }
    finished = dive::isDiveOver(time, wm->getTime());
    command = dive::buildDiveCommand(*wm, false);
}
