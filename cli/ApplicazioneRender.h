// What the painting commands share: Qt's fonts need an application, and a command line has no
// screen, so it paints offscreen.
#pragma once

namespace varena::cli {

// Makes the offscreen application once, when none is running.
void AssicuraApplicazione();

}  // namespace varena::cli
