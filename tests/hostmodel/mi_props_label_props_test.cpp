// The label and style facades: expressions and answers of the gets, commands and effects of the
// lets, the label font without its blanks, and the failures each member reports.

#include "facade_host.h"

#include <functional>

namespace vellant::hostmodel::testing {
namespace {

using LabelFacadeTest = FacadeHost;
using Label = MIPropsLabelProps;

struct LabelGet {
    std::function<std::string(Label&)> call;
    const char* code;
    std::function<std::string(const std::string&)> expected; // from eval's answer
    const char* log;
};

std::vector<LabelGet> labelGets() {
    const auto same = [](const std::string& a) { return a; };
    const auto logical = [](const std::string& a) { return text(a == "T"); };
    const auto number = [](const std::string& a) { return Str(Val(a)); };
    return {
        {read<&Label::Datafield>(), "15", same, "Error from get Datafield prop "},
        {read<&Label::Duplicate>(), "30", logical, "Error from get label Duplicate prop "},
        {read<&Label::LabelMax>(), "32", number, "Error from get LabelMax prop "},
        {read<&Label::LabelZoom>(), "25", [](const std::string& a) { return text(a == "2"); },
         "Error from get LabelZoom prop "},
        {read<&Label::LabelZoomMax>(), "27", number, "Error from get LabelZoomMax prop "},
        {read<&Label::LabelZoomMin>(), "26", number, "Error from get LabelZoomMin prop "},
        {read<&Label::Linetype>(), "16", number, "Error from get Linetype prop "},
        {read<&Label::Offset>(), "31", number, "Error from get Offset prop "},
        {read<&Label::Overlap>(), "29", logical, "Error from get Overlap prop "},
        {read<&Label::Parallel>(), "19", logical, "Error from get Parallel prop "},
        {read<&Label::PartialSegments>(), "33", logical, "Error from get PartialSegments prop "},
        {read<&Label::Position>(), "20", number, "Error from get Position prop "},
        {read<&Label::Visible>(), "25",
         [](const std::string& a) { return text(a == "2" || a == "3"); },
         "Error from get Visible prop "},
    };
}

TEST_F(LabelFacadeTest, EachGetAsksItsExpressionAndConvertsTheAnswer) {
    onLayer("lines");
    run(fill("Set Map Window <w> Layer <i> Label Visibility Zoom (5, 500) Position Above Right "
             "Offset 3 Max 40 Parallel On Line Arrow"));
    for (const LabelGet& get : labelGets()) {
        clear();
        const std::string expression = fill(std::string("LayerInfo(<w>,<i>,") + get.code + ")");
        EXPECT_EQ(get.call(*labels), get.expected(ask(expression))) << expression;
        EXPECT_EQ(app->asked, Strings{expression});
    }
    EXPECT_EQ(labels->Dataset(), nullptr);
    EXPECT_TRUE(context.logged.empty());
}

// The let, the command's tail, the attribute that shows the change and its answer, and the
// message label of a failure.
using LetRow =
    std::tuple<std::function<void(Label&)>, const char*, const char*, const char*, const char*>;

std::vector<LetRow> labelLets() {
    return {
        {write<&Label::setDatafield>(std::string("Name")), "Label with Name", "15", "Name",
         "Label field: "},
        {write<&Label::setDuplicate>(kTrue), "Label Duplicates On", "30", "T", "Label Duplicate: "},
        {write<&Label::setLabelMax>(50), "Label Max  50", "32", "50", "LabelMax: "},
        {write<&Label::setLinetype>(2), "Label Line Arrow", "16", "2", "Linetype:"},
        {write<&Label::setOffset>(4), "Label Offset  4", "31", "4", "Offset: "},
        {write<&Label::setOverlap>(kTrue), "Label Overlap On", "29", "T", "Label Overlap: "},
        {write<&Label::setParallel>(kTrue), "Label Parallel On", "19", "T", "Label Parallel: "},
        {write<&Label::setPartialSegments>(kTrue), "Label PartialSegments On", "33", "T",
         "Label PartialSegments: "},
        {write<&Label::setPosition>(1), "Label Position Above Left", "20", "1", "Label Position: "},
        // Below right cannot be reached: 8 sends the word of 5.
        {write<&Label::setPosition>(8), "Label Position Center Right", "20", "5",
         "Label Position: "},
        {write<&Label::setStyle>(std::string("Font (\"Arial\",1,10,0)")),
         "Label Font (\"Arial\",1,10,0)", "18", "Font (\"Arial\",1,10,0)", "Style: \r\n"},
        {write<&Label::setLabelZoomMin>(10.0), "Label Visibility Zoom(  10, 500)", "26", "10",
         "LabelZoomMin: "},
        {write<&Label::setLabelZoomMax>(800.0), "Label Visibility Zoom(  10, 800)", "27", "800",
         "LabelZoomMax: "},
        // Zoom off on labels shown by zoom shows them at all zooms.
        {write<&Label::setLabelZoom>(kFalse), "Label Visibility On", "25", "3", "LabelZoom: "},
        {write<&Label::setLabelZoom>(kTrue), "Label Visibility Zoom(  10, 800)", "25", "2",
         "LabelZoom: "},
        {write<&Label::setVisible>(kFalse), "Label Visibility Off", "25", "1", "Visible: "},
        {write<&Label::setLabelZoom>(kFalse), "Label Visibility Off", "25", "1", "LabelZoom: "},
        {write<&Label::setVisible>(kTrue), "Label Visibility On", "25", "3", "Visible: "},
    };
}

TEST_F(LabelFacadeTest, EachLetSendsItsCommandAndChangesTheLabels) {
    onLayer("regions");
    run(fill("Set Map Window <w> Layer <i> Label Visibility Zoom (5, 500)"));
    run(fill("Set Map Window <w> Layer <i> Label Visibility On"));
    for (const auto& [call, sent, code, after, label] : labelLets()) {
        clear();
        call(*labels);
        EXPECT_EQ(app->sent, Strings{fill(std::string("set map window <w> Layer <i> ") + sent)});
        EXPECT_EQ(ask(fill(std::string("LayerInfo(<w>,<i>,") + code + ")")), after) << sent;
    }
    EXPECT_TRUE(context.shown.empty() && context.logged.empty());
}

TEST_F(LabelFacadeTest, TheFontClauseLosesItsBlanks) {
    onLayer("regions");
    run(fill("Set Map Window <w> Layer <i> Label Font (\"Times  New\",0,9,0)"));
    const std::string clause = ask(fill("LayerInfo(<w>,<i>,18)"));
    // Of two blanks in a row the second stays.
    EXPECT_EQ(labels->Style(), "Font(\"Times New\",0,9,0)");
    EXPECT_EQ(context.iter, Len(clause) + 1);
    // Past its first blank a clause keeps 100 characters.
    run(fill("Set Map Window <w> Layer <i> Label Font (\"A" + std::string(120, 'x') + "\",0,9,0)"));
    EXPECT_EQ(labels->Style(), "Font(\"A" + std::string(97, 'x'));
}

TEST_F(LabelFacadeTest, FailuresAreLoggedOrShownWithTheirLabels) {
    onLayer("regions");
    // A line type without a word goes out as it is, and the host's refusal is shown.
    labels->setLinetype(5);
    EXPECT_EQ(app->sent, Strings{fill("set map window <w> Layer <i> Label Line ")});
    EXPECT_EQ(context.shown, Strings{"Linetype:" + host->LastErrorMessage()});
    // A last error left standing is logged by the zoom range's checks.
    app->staleError = "stale";
    labels->LabelZoomMin();
    labels->LabelZoomMax();
    labels->setLabelZoomMax(900); // reads the minimum too
    EXPECT_EQ(context.logged, Strings(4, "stale"));
    app->staleError.reset();

    context.shown.clear();
    const std::string gone = closeHost();
    for (const LabelGet& get : labelGets()) {
        context.logged.clear();
        EXPECT_EQ(get.call(*labels), get.expected("")) << get.log;
        EXPECT_EQ(context.logged, Strings{get.log + gone});
    }
    EXPECT_THROW(labels->Style(), RuntimeError);
    EXPECT_THROW(style->LineStyle(), RuntimeError);
    for (const auto& [call, sent, code, after, label] : labelLets()) {
        context.shown.clear();
        call(*labels);
        const std::string tail = std::string(label) == "Label field: " ? " for layer 1" : "";
        EXPECT_EQ(context.shown, Strings{label + gone + tail});
    }
}

TEST_F(LabelFacadeTest, LineStyleReadsGLayerAndNotTheClickedRow) {
    onLayer("lines");
    run(fill("Set Map Window <w> Layer <i> Global Line (1,5,0)"));
    context.click = context.layer + 1;
    EXPECT_EQ(style->LineStyle(), 5);
    EXPECT_EQ(app->asked, Strings{fill("Styleattr(LayerInfo(<w>,<i>,10),2)")});
}

} // namespace
} // namespace vellant::hostmodel::testing
