#include "views/common/fieldwidgets.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

QString withLf(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

/// A pasted address block must not smuggle line breaks into a field of one line, where nobody sees them.
QString onOneLine(const QString& text)
{
    return withLf(text)
        .replace(u'\n', u' ')
        .replace(QChar::LineSeparator, u' ')
        .replace(QChar::ParagraphSeparator, u' ');
}

QString checked(bool on)
{
    return on ? u"1"_s : u"0"_s;
}

/// A label keeps its mnemonic when the program gives it another text: the letter stands in its property.
QString withMnemonic(const QLabel& label, const QString& text)
{
    // Without a field to go to an ampersand is no mnemonic, and is drawn as it stands.
    if (!label.buddy())
        return text;
    const QString letter = label.property("mnemonic").toString();
    QString shown = QString(text).replace(u'&', u"&&"_s);
    const auto place = letter.isEmpty() ? -1 : shown.indexOf(letter, 0, Qt::CaseInsensitive);
    return place < 0 ? shown : shown.insert(place, u'&');
}

void writeLine(QLineEdit& edit, const QString& text)
{
    if (edit.text() == text)
        return;
    edit.setText(text);
    edit.setCursorPosition(edit.hasFocus() ? static_cast<int>(text.size()) : 0);
}

void writeCombo(QComboBox& combo, const QString& text)
{
    // Texts that differ in their capitals only may both be among the entries.
    const int exact = combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    const int row = exact >= 0 ? exact : combo.findText(text, Qt::MatchFixedString);
    if (row >= 0 || !combo.isEditable())
        combo.setCurrentIndex(row);
    if (combo.isEditable())
        combo.setEditText(text);
}

} // namespace

namespace fieldwidgets {

QString read(const QWidget& widget)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return onOneLine(line->text());
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget))
        return lines->toPlainText();
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return combo->currentText();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return checked(button->isChecked());
    if (const auto* slider = qobject_cast<const QSlider*>(&widget))
        return QString::number(slider->value());
    if (const auto* date = qobject_cast<const QDateEdit*>(&widget))
        return date->date().toString(Qt::ISODate);
    return {};
}

void write(QWidget& widget, const QString& text)
{
    const QSignalBlocker quiet(widget);
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
        // Boxes that measure themselves listen for textChanged; user edits are told by textEdited alone.
        widget.blockSignals(false);
        writeLine(*line, onOneLine(text));
    } else if (auto* lines = qobject_cast<QPlainTextEdit*>(&widget)) {
        if (lines->toPlainText() != withLf(text))
            lines->setPlainText(withLf(text));
    } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        writeCombo(*combo, text);
    } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
        label->setText(withMnemonic(*label, withLf(text)));
    } else if (auto* slider = qobject_cast<QSlider*>(&widget)) {
        bool isNumber = false;
        const int value = text.toInt(&isNumber);
        slider->setValue(isNumber ? value : slider->value());
    } else if (auto* date = qobject_cast<QDateEdit*>(&widget)) {
        const QDate day = QDate::fromString(text, Qt::ISODate);
        date->setDate(day.isValid() ? day : date->date());
    } else if (auto* option = qobject_cast<QRadioButton*>(&widget)) {
        // A group keeps its chosen option against its own clearing; a form may have none chosen.
        const bool exclusive = option->autoExclusive();
        option->setAutoExclusive(exclusive && text == "1"_L1);
        option->setChecked(text == "1"_L1);
        option->setAutoExclusive(exclusive);
    } else if (auto* box = qobject_cast<QCheckBox*>(&widget)) {
        box->setChecked(text == "1"_L1);
    }
}

void writeUndoably(QWidget& widget, const QString& text)
{
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
        line->selectAll();
        line->insert(onOneLine(text));
    }
    write(widget, text); // nothing to do for a line edit that took the text
}

bool onEdited(QWidget& widget, QObject& context, std::function<void(const QString&)> changed)
{
    const auto tell = [&widget, changed = std::move(changed)] { changed(read(widget)); };
    if (auto* line = qobject_cast<QLineEdit*>(&widget); line && !line->isReadOnly())
        QObject::connect(line, &QLineEdit::textEdited, &context, tell);
    else if (auto* lines = qobject_cast<QPlainTextEdit*>(&widget); lines && !lines->isReadOnly())
        QObject::connect(lines, &QPlainTextEdit::textChanged, &context, tell);
    else if (auto* combo = qobject_cast<QComboBox*>(&widget))
        QObject::connect(combo, &QComboBox::currentTextChanged, &context, tell);
    else if (qobject_cast<QCheckBox*>(&widget) || qobject_cast<QRadioButton*>(&widget))
        QObject::connect(static_cast<QAbstractButton*>(&widget), &QAbstractButton::toggled, &context, tell);
    else if (auto* slider = qobject_cast<QSlider*>(&widget))
        QObject::connect(slider, &QSlider::valueChanged, &context, tell);
    else if (auto* date = qobject_cast<QDateEdit*>(&widget))
        QObject::connect(date, &QDateEdit::dateChanged, &context, tell);
    else
        return false;
    return true;
}

} // namespace fieldwidgets
