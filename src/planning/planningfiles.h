// The files that a user of the goals and the action plan names: dialogs, names, questions.
#pragma once

#include <QStringList>

#include <functional>

class Session;

/// One kind of file: what it is called and how it is recognised.
struct PlanningFile
{
    QString title;  ///< of the file dialogs
    QString filter; ///< as in "Goal Files (goals*.jwg)"
    QString word;   ///< that every path has somewhere
    Qt::CaseSensitivity wordCase = Qt::CaseSensitive;
    QString suggestion;                            ///< the name that a first save suggests
    std::function<bool(const QStringList&)> isOwn; ///< by a file's lines
};

namespace planningfiles {

/// The path as such a file is kept: the word before the file's name when the whole path lacks it, and the
/// ending ".jwg". A name without a folder lies in the application folder.
QString named(const Session& session, const PlanningFile& kind, const QString& path);
/// A file to open, by its dialog; "" when the user gave up. @p before is the file at work, or "".
QString pickToOpen(Session& session, const PlanningFile& kind, const QString& before);
/// A file to save into, named(); "" when the user gave up. @p agreed becomes the path as it was picked, which
/// the user has agreed to replace.
QString pickToSave(Session& session, const PlanningFile& kind, const QString& before, QString& agreed);
/// Asks before an existing file is written over that is none of @p own, and before one that another program
/// wrote. True to go on.
bool mayOverwrite(Session& session, const PlanningFile& kind, const QString& path, const QStringList& own);

} // namespace planningfiles
