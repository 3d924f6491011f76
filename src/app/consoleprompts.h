// Questions where nobody can answer: the command line.
#pragma once

#include "base/ports.h"

/// Writes what the program has to say to standard error. Every question gets the answer that changes nothing;
/// what a command needs to know it takes as an option.
class ConsolePrompts : public Prompts
{
public:
    Answer msgBox(const QString& text, Buttons buttons, const QString& title) override;
    QString openFile(const QString& title, const QString& folder, const QStringList& filters) override;
    QString saveFile(const QString& title, const QString& folder, const QStringList& filters) override;
    QString pickCompany(const QString& title, const QStringList& companies) override;
};

/// The desktop of a command: it opens nothing.
class NoDesktop : public Desktop
{
public:
    bool openUrl(const QString&) override { return false; }
    bool openDocument(const QString&) override { return false; }
    [[nodiscard]] bool canOpen(const QString&) const override { return false; }
};
