#pragma once
// Where the desktop window was left. Its size and position in the normal
// state, and whether it was maximized, are written to a small INI file when
// the application quits, and put back at the next start: only onto a screen
// that is still there, and never larger than that screen's free area.

#include <QList>
#include <QMargins>
#include <QObject>
#include <QRect>
#include <QSize>
#include <QString>
#include <QTimer>

class QWindow;

namespace zt {

class WindowPlacement : public QObject {
    Q_OBJECT

public:
    // Remembers `window` in the INI file at `path`, written at quit.
    WindowPlacement(QWindow* window, const QString& path, QObject* parent = nullptr);

    // Gives the window its remembered place, then shows it, maximized if
    // it was; a missing or unreadable file leaves the window as designed.
    // A valid `size` (asked for on the command line) replaces the remembered
    // size and state; the place is still remembered at quit.
    void restoreAndShow(const QSize& size = {});
    // Writes the place the window last had while it was on show.
    void save();

    // The client rectangle at which a window saved at `saved` reopens, given
    // each screen's available geometry (the primary screen first), the
    // window's minimum client size and its frame. On the screen it overlaps
    // most, or centred on the primary one when it overlaps none; its frame
    // kept inside that screen. Invalid when there is nothing to go on.
    static QRect fit(const QRect& saved, const QList<QRect>& screens, const QSize& minimum,
                     const QMargins& frame = {});

    // One report of the window system about the window on show: its client
    // and frame rectangles and its states, in the order they come.
    void follow(const QRect& client, const QRect& frame, Qt::WindowStates states);

private:
    // A window's client rectangle and the frame around it.
    struct Place {
        QRect client;
        QRect frame;
    };
    // Follows the window while it is on show: hiding it, or the window
    // manager taking away its states as it closes, changes nothing saved.
    void track();

    QWindow* window_;
    QString path_;
    Place normal_;
    // A normal place is taken once the window has kept it for a moment: a
    // window manager can report the maximized size just before it reports
    // the maximized state, and that size is not the user's.
    Place pending_;
    QTimer settle_;
    bool maximized_ = false;
};

}  // namespace zt
