// SPDX-License-Identifier: MIT
#include "desktop/page_printing.h"

#include "desktop/qt_text.h"
#include "platform/saver.h"
#include "platform/text_file.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>

namespace kelvarin
{

namespace
{

print_outcome write_pdf(const QPrinter& printer, const page_painter& paint)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(printer.docName());
        writer.setCreator(QStringLiteral("Kelvarin"));
        writer.setResolution(printer.resolution());
        writer.setPageLayout(printer.pageLayout());
        writer.setPageRanges(printer.pageRanges());
        if (!paint(writer)) return print_outcome::cancelled;
    }
    const auto failure = save_file(to_path(printer.outputFileName()), bytes.toStdString());
    return failure ? print_outcome::failed : print_outcome::printed;
}

} // namespace

print_outcome print_pages(QPrinter& printer, const page_painter& paint)
{
    if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty())
        return write_pdf(printer, paint);
    if (!paint(printer)) {
        printer.abort();
        return print_outcome::cancelled;
    }
    return outcome_of(printer);
}

print_outcome outcome_of(const QPrinter& printer)
{
    if (printer.printerState() == QPrinter::Error) return print_outcome::failed;
    if (printer.outputFormat() != QPrinter::PdfFormat || printer.outputFileName().isEmpty())
        return print_outcome::printed;
    // A truncated file lacks the marker at the end of every PDF file.
    const text_file written = read_text_file(to_path(printer.outputFileName()));
    const std::size_t mark = written.ok() ? written.text.rfind("%%EOF") : std::string::npos;
    constexpr std::size_t line_ends = 8;
    const bool whole = mark != std::string::npos && written.text.size() - mark <= line_ends;
    return whole ? print_outcome::printed : print_outcome::failed;
}

} // namespace kelvarin
