// What the rules ask of the outside world. Each port has two real implementations: the desktop's and the
// test's.
#pragma once

#include "base/navigator.h"

#include <QString>
#include <QStringList>

/// The button sets of the standard message box; the second half of a name is the default button.
enum class Buttons { Ok, YesNo, YesNoDefaultNo, YesNoCancel };

/// The button pressed, with the codes that the program's rules speak of.
enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Questions to the user. An answer always comes back; closing a box counts as Cancel, or No where there is
/// no Cancel.
class Prompts
{
public:
    virtual ~Prompts() = default;
    virtual Answer msgBox(const QString& text, Buttons buttons, const QString& title) = 0;
    /// A file to open, or empty when the user gave up. @p filters as in "Sound files (*.wav)".
    virtual QString openFile(const QString& title, const QString& folder, const QStringList& filters) = 0;
    /// A file to write, or empty when the user gave up; the user has agreed to replace one that exists.
    /// @p suggested is a path or a folder.
    virtual QString saveFile(const QString& title, const QString& suggested, const QStringList& filters) = 0;
    /// A folder, or empty when the user gave up.
    virtual QString pickFolder(const QString& title, const QString& folder) = 0;
    /// One of @p companies, or empty when the user gave up.
    virtual QString pickCompany(const QString& title, const QStringList& companies) = 0;
};

/// The user's desktop around the program.
class Desktop
{
public:
    virtual ~Desktop() = default;
    /// Opens a web or mail address in the user's own program; false when nothing could be started.
    virtual bool openUrl(const QString& address) = 0;
    /// Opens a file in the program that the desktop knows for its type; false when there is none.
    virtual bool openDocument(const QString& path) = 0;
    /// Starts a program and lets it run on by itself; false when it could not be started. No shell is
    /// between: each argument reaches the program as it stands, whatever signs it holds.
    virtual bool startProgram(const QString& program, const QStringList& arguments) = 0;
    /// True when the desktop knows a program for files with this ending (".doc").
    [[nodiscard]] virtual bool canOpen(const QString& ending) const = 0;
    /// Plays a wave file once and returns at once; false when there is no such file or nothing to hear it
    /// with.
    virtual bool playSound(const QString& path) = 0;
    /// Shows a passing note of plain text beside the user's work; false when the desktop has no place for
    /// notes.
    virtual bool notify(const QString& title, const QString& text) = 0;
};
