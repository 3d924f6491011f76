// The position that the Position and the Pipeline screen have in common.
#pragma once

#include <QString>

class RecordSet;

/// The form of one position, as another screen fills, empties and saves it: the position chosen on the
/// Pipeline screen is the one that the Position screen shows, and both save it as one record.
class PositionForm
{
public:
    virtual ~PositionForm() = default;

    /// Shows the position at which @p record stands, and makes it the current one.
    virtual void fillPosForm(const RecordSet& record) = 0;
    virtual void clearPositionForm() = 0;
    /// Writes the form's position: the row of the current key is replaced by a new one with a new key, its
    /// references follow, the version goes into the journal; all in one action. A current key of 0 adds a
    /// position. @p stepValues is the statement's text for the eleven steps, "'date',medium," each; empty for
    /// no step done. False when the row did not get into the store: what was shown is shown still.
    virtual bool upPosx(const QString& stepValues, const QString& offerStatus) = 0;
};
