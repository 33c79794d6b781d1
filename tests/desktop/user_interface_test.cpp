// SPDX-License-Identifier: MIT
#include "desktop/user_interface.h"

#include "desktop/page_printing.h"
#include "desktop/qt_text.h"
#include "desktop/text_printing.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPrinter>

#include <csignal>

#include <sys/resource.h>

namespace kelvarin
{

namespace
{

TEST(UserInterface, AnEmptyClipboardHoldsNoText)
{
    QGuiApplication::clipboard()->setMimeData(nullptr);
    const auto user = make_desktop_interface();
    ASSERT_NE(user->clipboard(), nullptr);
    EXPECT_EQ(user->clipboard()->text(), "");
}

/// Files of this process end there, as on a disk that is full.
class full_disk
{
public:
    explicit full_disk(rlim_t room)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit less = {room, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &less);
    }
    ~full_disk() { setrlimit(RLIMIT_FSIZE, &before_); }
    full_disk(const full_disk&) = delete;
    full_disk& operator=(const full_disk&) = delete;

private:
    rlimit before_ = {};
};

TEST(PagePrinting, ToAFullDiskFailsAloudAndLeavesTheOldFile)
{
    const test::scratch_folder folder;
    folder.write("listing.pdf", "before");
    const page_painter paint = [](QPagedPaintDevice& device) {
        print_text(device, std::string(20000, 'x'));
        return true;
    };
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path_text(folder / "listing.pdf"));
    {
        const full_disk full(1000);
        EXPECT_EQ(print_pages(printer, paint), print_outcome::failed);
        EXPECT_EQ(folder.read("listing.pdf"), "before");
        // From the preview the toolkit prints by itself, and says nothing.
        paint(printer);
        EXPECT_EQ(outcome_of(printer), print_outcome::failed);
    }
    EXPECT_EQ(print_pages(printer, paint), print_outcome::printed);
    EXPECT_TRUE(folder.read("listing.pdf").starts_with("%PDF"));
    EXPECT_EQ(outcome_of(printer), print_outcome::printed);
}

TEST(PagePrinting, ToADeviceThatTakesNothingFails)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QStringLiteral("/dev/full"));
    const page_painter short_page = [](QPagedPaintDevice& device) {
        print_text(device, "x");
        return true;
    };
    EXPECT_EQ(print_pages(printer, short_page), print_outcome::failed);
}

} // namespace
} // namespace kelvarin
