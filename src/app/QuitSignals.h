#pragma once
// A desktop session ending, a phone's shell closing the app, Ctrl-C in a
// terminal: SIGTERM, SIGINT and SIGHUP end the run as closing the window
// does, through the event loop, so that what the user set is saved on the
// way out. A second such signal ends the program at once, as without this,
// so that a run stuck on its way out can still be stopped.

namespace zt {

// Call once, in main(), with the application made.
void quitOnTerminationSignals();

}  // namespace zt
