#pragma once
// The user's own music players, reached over the session bus (MPRIS). At
// launch the players that are playing are paused and remembered, so that
// they can be resumed when the program ends. Without a session bus this does
// nothing.

#include <QStringList>

namespace zt {

class MusicPlayer {
public:
    // True when at least one player was playing and has been paused.
    bool pauseIfPlaying();
    void resume();
    bool isMusicPause() const { return !paused_.isEmpty(); }

private:
    QStringList paused_;
};

}  // namespace zt
