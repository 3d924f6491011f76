// Sounds of the program.
#pragma once

#include <QPluginLoader>
#include <QString>

/// Plays wave files, one at a time, beside the program's own work. The sound system is first touched when
/// there is something to play.
class Sound
{
public:
    Sound();

    /// Plays a file once, from its beginning. False when it is no wave file or when there is nothing to hear
    /// it with.
    bool play(const QString& path);
    /// True when the module that plays is there and fits this program.
    [[nodiscard]] bool hasPlayer() { return m_module.instance() != nullptr; }

private:
    QPluginLoader m_module;
};
