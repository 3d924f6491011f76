// The program's questions as boxes on the user's desktop.
#pragma once

#include "base/ports.h"

/// Message boxes and file dialogs over whichever window is in front. Texts are shown as plain text always:
/// names and notes from a file must never be taken for markup.
class DesktopPrompts : public Prompts
{
public:
    Answer msgBox(const QString& text, Buttons buttons, const QString& title) override;
    QString openFile(const QString& title, const QString& folder, const QStringList& filters) override;
    QString saveFile(const QString& title, const QString& suggested, const QStringList& filters) override;
    QString pickFolder(const QString& title, const QString& folder) override;
    QString pickCompany(const QString& title, const QStringList& companies) override;
};
