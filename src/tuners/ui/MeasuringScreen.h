#pragma once
// What the two calibration screens share: Start and Stop of a measurement
// that polls every 0.05 s while it runs, the "Microphone Required" alert
// that ends it when there is no microphone, and OK (save, then back) and
// Cancel (back). A subclass says how to start and stop its audio session,
// what one poll asks for and what OK saves.

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QTimer>

#include "screen/Screen.h"

namespace zt {

class MeasuringScreen : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(bool measuring READ measuring NOTIFY measuringChanged)
    Q_PROPERTY(bool alertShown READ alertShown NOTIFY measuringChanged)
    Q_PROPERTY(QString alertTitle READ alertTitle CONSTANT)
    Q_PROPERTY(QString alertMessage READ alertMessage CONSTANT)

public:
    bool measuring() const { return measuring_; }
    bool alertShown() const { return alertShown_; }
    QString alertTitle() const { return QStringLiteral("Microphone Required"); }
    QString alertMessage() const { return alertMessage_; }

    // No microphone: measuring ends and the alert shows.
    void showMicrophoneDetectAlertView();

    Q_INVOKABLE void startMeasuring();
    Q_INVOKABLE void stopMeasuring();
    Q_INVOKABLE void dismissAlert();
    Q_INVOKABLE void ok();
    Q_INVOKABLE void cancel();

    virtual void saveSettings() = 0;

signals:
    void measuringChanged();

protected:
    MeasuringScreen(QString alertMessage, QObject* parent);

    // Leaving the screen: the poll stops and the session is stopped whether
    // or not it ran.
    void endMeasuring();

    virtual void startSession() = 0;
    virtual void stopSession() = 0;
    virtual void poll() = 0;

private:
    QString alertMessage_;
    QTimer timer_;
    bool measuring_ = false;
    bool alertShown_ = false;
};

}  // namespace zt
