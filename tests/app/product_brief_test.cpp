// The product brief the information form opens: a real PDF of one or two A4 pages that says
// what Vellant is.

#include "app/brief/product_brief.h"
#include "support/session_fixture.h"

#include <QGuiApplication>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace vellant::testing {
namespace {

void ensureApplication() {
    if (QGuiApplication::instance() != nullptr) return;
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "product_brief_test";
    static char* argv[] = {name, nullptr};
    static QGuiApplication app(argc, argv);
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(ProductBrief, IsAPdfOfOneOrTwoPages) {
    ensureApplication();
    TempDir dir;
    const std::string path = dir.file(brief::kProductBriefFile);

    ASSERT_TRUE(brief::writeProductBrief(QString::fromStdString(path)));

    const std::string pdf = readText(path);
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
    // Each page is an object of type /Page; the page tree is /Pages.
    const std::size_t pages = countOf(pdf, "/Type /Page\n");
    EXPECT_GE(pages, 1U);
    EXPECT_LE(pages, 2U);
}

TEST(ProductBrief, TellsOfBothHostsTheGridAndTheForms) {
    ensureApplication();
    const QString text = brief::productBriefDocument()->toPlainText();
    for (const char* subject : {"MapInfo Professional", "MapX", "grid", "floating", "docked",
                                "IMMEDIATE", "1.00 Beta (01)"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(subject))) << subject;
}

TEST(ProductBrief, AFileThatCannotBeWrittenIsReported) {
    ensureApplication();
    EXPECT_FALSE(brief::writeProductBrief("/nonexistent-folder/vellantpb.pdf"));
}

} // namespace
} // namespace vellant::testing
