#pragma once
// openal-soft reads its settings once, at the first call into it. Call this
// before any OpenAL call (opening an output or a capture device, listing
// devices): it adds the settings the app plays best with.
//
// The one setting today lets the sound server move the output stream. Without
// it openal-soft pins its stream to the output it started on, so choosing
// another output in the system (headphones plugged in, a Bluetooth headset
// connected) leaves the app playing where it was, and an unplugged output with
// another one still there silences the app until it reconnects. With it, the
// stream follows the system's choice like any other program's sound.
//
// The settings go in after the user's own configuration files; a user who
// names a configuration file in ALSOFT_CONF keeps exactly that one. Setting
// that variable changes the environment, so a program calls this first thing
// in main(), before other threads run; later calls do nothing.

namespace zt {

void applyOpenAlSettings();

}  // namespace zt
