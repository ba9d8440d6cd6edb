#pragma once
// The application's debug log: the lines of every layer (framework/Log.h)
// go to the Qt logging category "zebtools". Diagnostics are debug messages,
// off by default; problems are warnings, always shown. --verbose, or the
// usual QT_LOGGING_RULES ("zebtools.debug=true"), turns the diagnostics on.

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcZebTools)

namespace zt {

// Sends the log to the category; with verbose its debug messages show, and
// the audio library's own messages are no longer silenced.
void routeLogToQt(bool verbose);

}  // namespace zt
