#include "app/AppLog.h"

#include "framework/Log.h"

Q_LOGGING_CATEGORY(lcZebTools, "zebtools", QtWarningMsg)

namespace zt {

void routeLogToQt(bool verbose) {
    if (verbose)
        QLoggingCategory::setFilterRules(QStringLiteral("zebtools.debug=true"));
    // openal-soft reports device probing on standard error; a user who has
    // not asked for its messages does not see them.
    if (!verbose && qEnvironmentVariableIsEmpty("ALSOFT_LOGLEVEL"))
        qputenv("ALSOFT_LOGLEVEL", "0");
    setLogHandler([](LogLevel level, const std::string& line) {
        const QString text = QString::fromStdString(line);
        if (level == LogLevel::Warning)
            qCWarning(lcZebTools).noquote() << text;
        else
            qCDebug(lcZebTools).noquote() << text;
    });
}

}  // namespace zt
