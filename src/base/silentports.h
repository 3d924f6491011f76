// Ports of a run that nobody sits before: commands, benchmarks, fuzzing.
#pragma once

#include "base/ports.h"

/// Shows nothing, and gives each question the answer that changes nothing.
class SilentPrompts : public Prompts
{
public:
    Answer msgBox(const QString&, Buttons buttons, const QString&) override
    {
        return buttons == Buttons::Ok ? Answer::Ok : Answer::No;
    }
    QString openFile(const QString&, const QString&, const QStringList&) override { return {}; }
    QString saveFile(const QString&, const QString&, const QStringList&) override { return {}; }
    QString pickFolder(const QString&, const QString&) override { return {}; }
    QString pickCompany(const QString&, const QStringList&) override { return {}; }
};

/// Opens and starts nothing.
class SilentDesktop : public Desktop
{
public:
    bool openUrl(const QString&) override { return false; }
    bool openDocument(const QString&) override { return false; }
    bool startProgram(const QString&, const QStringList&) override { return false; }
    [[nodiscard]] bool canOpen(const QString&) const override { return false; }
    bool playSound(const QString&) override { return false; }
    bool notify(const QString&, const QString&) override { return false; }
};

/// Has no screen to open.
class SilentNavigator : public Navigator
{
public:
    [[nodiscard]] const std::vector<ScreenRow>& screens() const override { return m_none; }
    [[nodiscard]] bool hasScreen(const QString&) const override { return false; }
    QVariant open(const QString&, const QVariant&) override { return {}; }
    void openHelp(int) override {}

private:
    std::vector<ScreenRow> m_none;
};
