// The delivered demo campaign, brought to today.
#pragma once

#include <QString>

class Session;

/// Lays the campaign file at @p xmlPath into the session's store, which must hold no company yet. Its days
/// are moved by the days between the root's attribute "Recorded" and today, so that what was due tomorrow is
/// due tomorrow again; dates that stand for "none" stay. The moved file is left as "restore.xml" in the
/// application folder. What a restore does not bring (ratings, lists of documents, the positions of profiles,
/// the list of categories) is added. False, with the user told why, when it could not be loaded.
bool loadDemo(Session& session, const QString& xmlPath);
