#include "desktop/sound.h"

#include "desktop/waveplayer.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The player reads in the background and reports a bad file when nobody asks any more, so a look at the
/// file's head comes first.
bool isWaveFile(const QString& path)
{
    constexpr qint64 headSize = 12;
    QFile file(path);
    // A pipe that nobody writes to would be waited for without end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(headSize);
    return head.size() == headSize && head.startsWith("RIFF") && head.endsWith("WAVE");
}

} // namespace

Sound::Sound()
{
    // Beside the program, as it was built and as it is installed.
    m_module.setFileName(QCoreApplication::applicationDirPath() + u"/../" JOBWRIGHT_MODULES
                                                                  "/jobwright_wave");
}

bool Sound::play(const QString& path)
{
    if (!isWaveFile(path))
        return false;
    auto* const player = qobject_cast<WavePlayer*>(m_module.instance());
    return player && player->play(path);
}
