#include "desktop/sound.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace {

/// The player reads in the background and reports a bad file when nobody asks any more, so a look at the
/// file's head comes first.
bool isWaveFile(const QString& path)
{
    constexpr qint64 headSize = 12;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(headSize);
    return head.size() == headSize && head.startsWith("RIFF") && head.endsWith("WAVE");
}

} // namespace

Sound::Sound() = default;

Sound::~Sound() = default;

bool Sound::play(const QString& path)
{
    if (!isWaveFile(path) || QMediaDevices::defaultAudioOutput().isNull())
        return false;
    // Made anew for each sound: a device that was plugged in since is found.
    m_effect = std::make_unique<QSoundEffect>();
    m_effect->setSource(QUrl::fromLocalFile(path));
    m_effect->play();
    return true;
}
