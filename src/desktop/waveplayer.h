// What plays a wave file, in a module of its own.
#pragma once

#include <QString>
#include <QtPlugin>

/// The sound system draws in some twenty libraries, which every start would load and hardly any needs. So it
/// stands in a module, loaded with the first sound.
class WavePlayer
{
public:
    WavePlayer() = default;
    virtual ~WavePlayer() = default;
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;

    /// Plays the wave file once, from its beginning, beside the program's own work; a sound that still plays
    /// ends. False when there is no device to hear it with.
    virtual bool play(const QString& path) = 0;
};

Q_DECLARE_INTERFACE(WavePlayer, "org.jobwright.WavePlayer/1")
