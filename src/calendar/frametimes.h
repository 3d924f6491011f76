// The times in the calendar's editing frame.
#pragma once

#include "base/form.h"
#include "calendar/jwevent.h"

#include <QCoreApplication>

#include <optional>

/// What keeps an entry from being saved.
struct FrameTrouble
{
    QString control;
    QString words; ///< for the user
};

/// Start, end, length and reminder of the entry in the frame, and how they follow each other.
///
/// Its controls in the form:
/// - txtEvTimeS with optStAM and optStPM: the start, with lstTime as items
/// - txtEvTimeN with optEnAM and optEnPM: the end, with the same
/// - chkhalf, chkOne, chkOnehalf, chkTwo: lengths
/// - imgReminder: the bell, "1" when set; txtRemind with lstRemind as items
class FrameTimes
{
    Q_DECLARE_TR_FUNCTIONS(FrameTimes)

public:
    /// @p form must outlive this.
    explicit FrameTimes(Form& form);

    void fill(const JWevent& entry);
    /// The user has changed a control; the others follow. False when it is none of these.
    bool changed(const QString& control);
    /// Writes a time typed in another way ("14:30", "9", "2pm") as the list has it. False for a text that is
    /// no time; nothing happens for a control that holds none.
    bool normalise(const QString& control);
    void toggleBell();

    /// The first time or lead time that cannot be read.
    [[nodiscard]] std::optional<FrameTrouble> trouble();
    /// Without a start an entry is a task, unless it came as an event that has none.
    [[nodiscard]] bool isTimeless() const;
    /// Puts start, length and lead time into @p entry, whose type says what an empty start stands for.
    void store(JWevent& entry) const;

private:
    void setHalf(const QString& am, const QString& pm, bool isPm);
    void showEnd();
    void takeEnd();
    void tickLength();
    void chooseLength(const QString& control);

    Form& m_form;
    bool m_untimed = false; ///< an event with "Nodate" for its start
    QString m_duration;     ///< hours as a decimal text; what the entry is stored with
};
