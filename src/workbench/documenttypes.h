// The types of documents.
#pragma once

#include <QStringView>

#include <array>

/// One type of document: its option on the screen and the words that stand for it.
struct DocumentType
{
    QStringView control; ///< its option
    QStringView word;    ///< as the selection and the tree know it
    QStringView value;   ///< as the store holds it
    QStringView tag;     ///< what names of the program's own begin with
};

inline constexpr std::array<DocumentType, 5> documentTypes{{
    {u"opt1", u"resume", u"Resume", u"res"},
    {u"opt2", u"cover", u"Cover", u"cov"},
    {u"opt3", u"broadcast", u"Broadcast", u"bct"},
    {u"opt4", u"sample", u"Sample", u"smp"},
    {u"opt5", u"other", u"Other", u"doc"},
}};

/// The type whose option, word or stored value this is, in any case of its letters; null for another text.
const DocumentType* findDocumentType(QStringView text);
