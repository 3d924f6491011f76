#include "desktop/pagepainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <climits>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Block = ReportPage::Block;

constexpr double bodySize = 10;
constexpr double screenDpi = 96;

QFont bodyFont(double size, bool bold = false)
{
    QFont font;
    font.setPointSizeF(size);
    font.setBold(bold);
    return font;
}

/// Labels stand in the first column.
QFont columnFont(qsizetype column)
{
    return bodyFont(bodySize, column == 0);
}

/// The wanted font, or one of the system with the same pitch.
QFont fixedFont(double size)
{
    QFont font;
    font.setFamilies({u"Courier New"_s, u"Liberation Mono"_s, u"DejaVu Sans Mono"_s, u"monospace"_s});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(size);
    return font;
}

/// The sheet at hand: where the next line goes, and what stands around it.
class Sheets
{
public:
    Sheets(QPagedPaintDevice& device, const ReportDocument& document)
        : m_device(device)
        , m_document(document)
        , m_painter(&device)
        , m_area(QPointF(), QSizeF(device.pageLayout().paintRectPixels(device.logicalDpiX()).size()))
    {
        if (!m_painter.isActive())
            return;
        // Characters as wide as the sheet has room for, and no larger than the rest of the page.
        const double wide = QFontMetricsF(fixedFont(bodySize), &device)
                                .horizontalAdvance(QString(ReportDocument::fixedColumns, u'0'));
        m_fixed = fixedFont(std::min(bodySize, bodySize * m_area.width() / wide * 0.995));
    }

    [[nodiscard]] bool isActive() const { return m_painter.isActive(); }
    bool beginPage(int number);
    void add(const Block& block);
    void addRows(std::span<const Block> rows);
    bool end() { return m_painter.end(); }

private:
    void frame();
    void nextSheet();
    double breakLines(QTextLayout& layout, double width) const;
    double cell(const QString& text, const QFont& font, double width, const QPointF* place);
    void flow(const QString& text, const QFont& font, double above);
    void draw(const Block& block);
    [[nodiscard]] std::vector<double> columnWidths(std::span<const Block> rows, double gap) const;
    double row(const QStringList& texts, const std::vector<double>& widths, bool paint);
    [[nodiscard]] double line(const QFont& font) const
    {
        return QFontMetricsF(font, &m_device).lineSpacing();
    }

    QPagedPaintDevice& m_device;
    const ReportDocument& m_document;
    QPainter m_painter;
    QRectF m_area;
    QFont m_fixed;
    double m_y = 0;
    double m_bottom = 0;
    double m_top = 0;
    int m_number = 0;
    bool m_failed = false;
};

bool Sheets::beginPage(int number)
{
    m_number = number;
    if (number > 1)
        nextSheet();
    else
        frame();
    return !m_failed;
}

void Sheets::nextSheet()
{
    m_failed = m_failed || !m_device.newPage();
    frame();
}

void Sheets::frame()
{
    const QFont small = bodyFont(8);
    const double height = line(small);
    m_bottom = m_area.bottom();
    if (!m_document.footer.isEmpty() || m_document.numbered) {
        m_bottom -= height * 2;
        const QRectF foot(m_area.left(), m_area.bottom() - height, m_area.width(), height);
        m_painter.setFont(small);
        m_painter.drawText(foot, Qt::AlignLeft | Qt::AlignVCenter, m_document.footer);
        if (m_document.numbered)
            m_painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter, QString::number(m_number));
    }
    m_y = m_area.top();
    if (!m_document.header.isEmpty()) {
        const QFont bold = bodyFont(12, true);
        const QPointF place = m_area.topLeft();
        m_y += cell(m_document.header, bold, m_area.width(), &place);
    }
    m_top = m_y;
}

/// Breaks one paragraph into the layout's lines, one below the other; answers their height.
double Sheets::breakLines(QTextLayout& layout, double width) const
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    double y = 0;
    layout.beginLayout();
    for (QTextLine one = layout.createLine(); one.isValid(); one = layout.createLine()) {
        one.setLineWidth(width);
        one.setPosition({0, y});
        y += std::max(one.height(), line(layout.font()));
    }
    layout.endLayout();
    return y;
}

/// The height of a text in a column of this width; it is drawn at @p place unless that is null.
double Sheets::cell(const QString& text, const QFont& font, double width, const QPointF* place)
{
    double y = 0;
    for (const QString& paragraph : reporttext::wrapped(text, INT_MAX)) {
        QTextLayout layout(paragraph, font, &m_device);
        const double height = breakLines(layout, width);
        if (place)
            layout.draw(&m_painter, *place + QPointF(0, y));
        y += height;
    }
    return y;
}

/// Lines one below the other, from sheet to sheet.
void Sheets::flow(const QString& text, const QFont& font, double above)
{
    if (m_y > m_top)
        m_y += above;
    for (const QString& paragraph :
         reporttext::wrapped(text, font == m_fixed ? ReportDocument::fixedColumns : INT_MAX)) {
        QTextLayout layout(paragraph, font, &m_device);
        breakLines(layout, m_area.width());
        for (int i = 0; i < layout.lineCount(); ++i) {
            QTextLine one = layout.lineAt(i);
            const double height = std::max(one.height(), line(font));
            if (m_y + height > m_bottom && m_y > m_top)
                nextSheet();
            one.setPosition({0, 0});
            one.draw(&m_painter, {m_area.left(), m_y});
            m_y += height;
        }
    }
}

void Sheets::draw(const Block& block)
{
    const double height = std::min(m_area.width() / 2, m_bottom - m_top);
    if (m_y + height > m_bottom && m_y > m_top)
        nextSheet();
    // In the units of a screen, so that lines keep their strength at any resolution.
    const double scale = m_device.logicalDpiX() / screenDpi;
    QFont font = bodyFont(bodySize);
    font.setPixelSize(qRound(bodySize * screenDpi / 72));
    m_painter.save();
    m_painter.translate(m_area.left(), m_y);
    m_painter.scale(scale, scale);
    m_painter.setFont(font);
    block.drawing(m_painter, QRectF(0, 0, m_area.width() / scale, height / scale));
    m_painter.restore();
    m_y += height;
}

void Sheets::add(const Block& block)
{
    const QString text = block.texts.value(0);
    const double gap = line(bodyFont(bodySize));
    switch (block.kind) {
    case Block::Heading:
        return flow(text, bodyFont(18, true), gap);
    case Block::Subheading:
        return flow(text, bodyFont(12, true), gap);
    case Block::Fixed:
        return flow(text, m_fixed, 0);
    case Block::Drawing:
        return draw(block);
    default:
        return flow(text, bodyFont(bodySize), gap * 0.3);
    }
}

/// Each column is as wide as what is in it, none takes more than half of what is left, the last has the rest.
std::vector<double> Sheets::columnWidths(std::span<const Block> rows, double gap) const
{
    const auto cells =
        std::ranges::max(rows, {}, [](const Block& row) { return row.texts.size(); }).texts.size();
    std::vector<double> widths;
    double left = m_area.width();
    for (qsizetype i = 0; i + 1 < cells; ++i) {
        const QFontMetricsF metrics(columnFont(i), &m_device);
        double width = 0;
        for (const Block& row : rows)
            width = std::max(width, metrics.horizontalAdvance(row.texts.value(i)) + gap);
        widths.push_back(std::min(width, left / 2));
        left -= widths.back();
    }
    widths.push_back(left);
    return widths;
}

double Sheets::row(const QStringList& texts, const std::vector<double>& widths, bool paint)
{
    QPointF place(m_area.left(), m_y);
    double height = 0;
    for (size_t i = 0; i < widths.size(); ++i) {
        const auto number = static_cast<qsizetype>(i);
        height = std::max(height,
                          cell(texts.value(number), columnFont(number), widths[i], paint ? &place : nullptr));
        place.rx() += widths[i];
    }
    return height;
}

void Sheets::addRows(std::span<const Block> rows)
{
    const double gap = line(bodyFont(bodySize));
    const std::vector<double> widths = columnWidths(rows, gap);
    if (m_y > m_top)
        m_y += gap * 0.6;
    for (const Block& one : rows) {
        if (m_y + row(one.texts, widths, false) > m_bottom && m_y > m_top)
            nextSheet();
        m_y += row(one.texts, widths, true) + gap * 0.35;
    }
}

} // namespace

bool PagePainter::paint(QPagedPaintDevice& device, const ReportDocument& document, const Paper::Step& step)
{
    Sheets sheets(device, document);
    if (!sheets.isActive())
        return false;
    int number = 0;
    for (const ReportPage& page : document.pages) {
        if (!sheets.beginPage(++number))
            return false;
        const std::span<const Block> blocks(page.blocks);
        for (size_t i = 0; i < blocks.size();) {
            size_t end = i + 1;
            if (blocks[i].kind != Block::Columns) {
                sheets.add(blocks[i]);
            } else {
                while (end < blocks.size() && blocks[end].kind == Block::Columns)
                    ++end;
                sheets.addRows(blocks.subspan(i, end - i));
            }
            i = end;
        }
        if (step && !step(number))
            return false;
    }
    return sheets.end();
}
