// Pages of headings, columns and paragraphs: one document for preview, printer and PDF.
#pragma once

#include <QRectF>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class QPainter;

/// Paints, black on white, into a rectangle in 1/96 inch. What it paints must live until the end of printing.
using ReportDrawing = std::function<void(QPainter&, const QRectF&)>;

/// One page as it is written; where it is longer than a sheet of paper it runs on to the next. Texts of the
/// user stand as they are, never as markup.
struct ReportPage
{
    struct Block
    {
        enum Kind {
            Heading,    ///< of the page, large
            Subheading, ///< of the paragraph below it
            Columns,    ///< a row of cells; rows that follow each other share their columns
            Paragraph,  ///< text in the common font
            Fixed,      ///< lines in a fixed pitch, ReportDocument::fixedColumns characters wide
            Drawing,    ///< as wide as the sheet and half as high, never parted by its end
        };
        Kind kind;
        QStringList texts;          ///< the cells of a row; one text for the others
        ReportDrawing drawing = {}; ///< of a Drawing
    };
    std::vector<Block> blocks;

    void add(Block::Kind kind, const QString& text) { blocks.push_back({kind, {text}}); }
    void add(const ReportDrawing& drawing) { blocks.push_back({Block::Drawing, {}, drawing}); }
    void addRow(const QStringList& cells) { blocks.push_back({Block::Columns, cells}); }
};

/// What is printed at once.
struct ReportDocument
{
    static constexpr int fixedColumns = 110;

    QString title;         ///< of the print job and the PDF file
    QString header;        ///< at the top of each sheet; may be empty
    QString footer;        ///< at the foot of each sheet; may be empty
    bool numbered = false; ///< each page shows its number, from 1
    std::vector<ReportPage> pages;
};

namespace reporttext {

/// A text's lines, those longer than @p width broken behind a blank or colon, or at the width where they have
/// neither. Line ends are CR LF, LF or CR; a tab counts as a blank. The last line end of the text begins no
/// line.
[[nodiscard]] QStringList wrapped(const QString& text, int width = ReportDocument::fixedColumns);

} // namespace reporttext
