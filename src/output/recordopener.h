// The way from something found to the screen where it is at home.
#pragma once

#include "base/key.h"

#include <QString>

class FrmData;
class Navigator;
class Session;

/// Opens records on their screens, by the word for their kind: "Contact", "Company", "Position", "Document",
/// "History" (by the key of its contact), "Event", "Profile" and "Target".
class RecordOpener
{
public:
    /// All three must outlive the opener.
    RecordOpener(Session& session, Navigator& navigator, FrmData& workbench)
        : m_session(session)
        , m_navigator(navigator)
        , m_workbench(workbench)
    {
    }

    /// False when the user stays where he is, the record is gone, or the program has no such screen; the
    /// latter two are said.
    bool open(const QString& word, Key key);

private:
    bool showOnWorkbench(const QString& screen, Key key);

    Session& m_session;
    Navigator& m_navigator;
    FrmData& m_workbench;
};
