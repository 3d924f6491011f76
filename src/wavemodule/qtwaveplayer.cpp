#include "wavemodule/qtwaveplayer.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

QtWavePlayer::QtWavePlayer() = default;

QtWavePlayer::~QtWavePlayer() = default;

bool QtWavePlayer::play(const QString& path)
{
    if (QMediaDevices::defaultAudioOutput().isNull())
        return false;
    // Made anew for each sound: a device that was plugged in since is found.
    m_effect = std::make_unique<QSoundEffect>();
    m_effect->setSource(QUrl::fromLocalFile(path));
    m_effect->play();
    return true;
}
