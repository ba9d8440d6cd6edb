#pragma once
// The tapering function choice: a header row ("Tapering function") and the
// five windows "Gauss", "Cosine", "Hamming", "Hann", "Lanczos" (taper modes
// 0 to 4), the current one ticked. Touching one makes it the tuner's window
// at once; leaving the screen saves it as "Taper".

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>

#include "screen/Screen.h"

namespace zt {

class TunerChromaticTaperDelegate;

class TunerChromaticTaper : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QString header READ header CONSTANT)
    Q_PROPERTY(QStringList taperNames READ taperNames CONSTANT)
    Q_PROPERTY(int taperMode READ taperMode NOTIFY taperModeChanged)

public:
    explicit TunerChromaticTaper(QObject* parent = nullptr);

    void setDelegate(TunerChromaticTaperDelegate* delegate) { delegate_ = delegate; }
    TunerChromaticTaperDelegate* delegate() const { return delegate_; }

    QString header() const { return QStringLiteral("Tapering function"); }
    QStringList taperNames() const { return taperNameArray_; }
    // The windows' names by taper mode.
    static QStringList names();
    int taperMode() const { return taperMode_; }
    // The service's current window, as the mediator answers getTaperMode.
    void setTaperMode(int mode);

    Q_INVOKABLE int rowCount() const { return static_cast<int>(taperNameArray_.size()) + 1; }
    // Row k >= 1 chooses taper mode k - 1; row 0 is the header.
    Q_INVOKABLE void selectRow(int row);

    void viewWillAppear() override;
    void viewWillDisappear() override;

signals:
    void taperModeChanged();

private:
    TunerChromaticTaperDelegate* delegate_ = nullptr;
    QStringList taperNameArray_;
    int taperMode_ = 0;
};

}  // namespace zt
