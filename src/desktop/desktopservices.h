// The user's own programs: browser, mail, documents.
#pragma once

#include "base/ports.h"
#include "desktop/sound.h"

#include <QUrl>

/// Hands addresses and documents to the programs that the desktop has for them.
class DesktopServices : public Desktop
{
public:
    bool openUrl(const QString& address) override;
    bool openDocument(const QString& path) override;
    bool startProgram(const QString& program, const QStringList& arguments) override;
    [[nodiscard]] bool canOpen(const QString& ending) const override;
    bool playSound(const QString& path) override;
    bool notify(const QString& title, const QString& text) override;

    /// The address that a person meant by what stands in a field: "www.x.example" and "x.example/jobs" get
    /// https, a mail address mailto. Invalid for empty texts and for every scheme but http, https, mailto and
    /// file: an imported address must not start just any program of the desktop.
    [[nodiscard]] static QUrl cleanAddress(const QString& address);

private:
    Sound m_sound;
};
