// The description in the calendar's editing frame.
#pragma once

#include "base/form.h"

/// The text of the entry in the frame, and what is put into it by choice. An entry has no column for the two
/// choices, so each stands as a line of its own in the text.
///
/// Its controls in the form: txtEvDescription; imgOther1, imgOther2: the text chosen, "" for none.
class FrameNotes
{
public:
    /// @p form must outlive this.
    explicit FrameNotes(Form& form)
        : m_form(form)
    {
    }

    void fill(const QString& stored);
    [[nodiscard]] QString text() const;
    /// imgOther1 or imgOther2, by 1 and 2; "" takes the choice back.
    void choose(int button, const QString& text);
    [[nodiscard]] bool isTooLong() const;

private:
    Form& m_form;
};
