// Sounds of the program.
#pragma once

#include <QString>

#include <memory>

class QSoundEffect;

/// Plays wave files, one at a time, beside the program's own work. The sound system is first touched when
/// there is something to play.
class Sound
{
public:
    Sound();
    ~Sound();

    /// Plays a file once, from its beginning. False when it is no wave file or when there is nothing to hear
    /// it with.
    bool play(const QString& path);

private:
    std::unique_ptr<QSoundEffect> m_effect;
};
