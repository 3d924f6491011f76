// Wave files through Qt's sound.
#pragma once

#include "desktop/waveplayer.h"

#include <QObject>

#include <memory>

class QSoundEffect;

/// Plays on the device that is the system's own at that moment.
class QtWavePlayer : public QObject, public WavePlayer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.jobwright.WavePlayer/1")
    Q_INTERFACES(WavePlayer)

public:
    QtWavePlayer();
    ~QtWavePlayer() override;

    bool play(const QString& path) override;

private:
    std::unique_ptr<QSoundEffect> m_effect;
};
