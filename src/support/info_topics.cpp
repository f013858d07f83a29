// The user reads these texts as they are written, slips of spelling and spacing included: they
// are part of the product and stay word for word.

#include "support/info_topics.h"

#include <initializer_list>
#include <string>

namespace vellant::support {

namespace {

constexpr const char* kBreak = "\r\n";
constexpr const char* kHeadingIndent = "           ";

std::string heading(const std::string& title) {
    return kHeadingIndent + title + " ";
}

// Lines that belong together (a numbered list, a block of code) follow one another.
std::string lines(std::initializer_list<std::string> items) {
    std::string text;
    for (const std::string& item : items) {
        if (!text.empty()) text += kBreak;
        text += item;
    }
    return text;
}

// A heading line, then the paragraphs, each set apart by an empty line.
std::string topic(const std::string& headingLine, std::initializer_list<std::string> paragraphs) {
    std::string text = headingLine;
    for (const std::string& paragraph : paragraphs)
        text += std::string(kBreak) + kBreak + paragraph;
    return text;
}

// A section of the limitations: its title underlined with equals signs, then its paragraphs.
std::string section(const std::string& title, std::initializer_list<std::string> paragraphs) {
    return topic(title + kBreak + std::string(title.size(), '='), paragraphs);
}

constexpr const char* kIfNotImmediate =
    "If the IMMEDIATE option is not set, you have the option of exiting and ACCEPTing changes or "
    "exiting without changes.";

std::string cellTopic() {
    return topic(
        heading("What happens when you click on a CELL?"),
        {" A TOGGLE cell will cycle through two or more settings with each click. If a single row "
         "or cell has been selected, the cycle is ON / OFF  or NO OVERRIDE / OVERRIDE for style "
         "settings.",
         " A TOGGLE cell will cycle through 4 possible settings if multiple layers are selected. "
         "These are:",
         lines(
             {"   1. Toggle the original setting. ",
              "   2. Toggle the setting of the clicked row of the set and apply this to all rows. ",
              "   3. Apply the original setting of the clicked row to all rows. ",
              "   4. Restore the original setting o each row. "}),
         " A cell that accepts text will show a green background box for text entry. ",
         " A cell that accepts a selection from a list will show a list box. Type data or pick "
         "from the list. ",
         " A cell that has a gray background or is view-only will not resppond to a click. "});
}

std::string limitsTopic() {
    return heading("KNOWN LIMITATIONS in Vellant") + kInfoVersion + kBreak + kBreak +
           section(" MapInfo and MapX",
                   {"Currently does not support style overrides for layers containing multiple "
                    "feature types. The style of the first feature type present in the layer "
                    "will be used.",
                    "Currently does not support style overrides for raster layers.",
                    "You may only add a single layer at a time. Multiple layers may be removed.",
                    "Add and Remove Layer on collapsed layer groups has no affect currently. The "
                    "master layer may need to be double-clicked to clean the display",
                    "Only adjacent layers (rows) in the grid may be selected. CTRL-click does "
                    "nothing.",
                    "Label line style click currently does nothing."}) +
           kBreak + kBreak +
           section(" MapInfo",
                   {"Will only support a single instance of MapInfo. If a second MapInfo/Vellant "
                    "is started, both Vellant applications will terminate. [Will support "
                    "concurrent MapInfo/Mapx Vellant operations.]",
                    "If Vellant is terminated using the 'Exit Vellant' Tool Button on the MapInfo "
                    "tool bar, the Vellant task is not removed from the system. You can restart "
                    "Vellant successfully.",
                    "[If Vellant is terminated by shutting down MapInfo or using one of Vellant's "
                    "exit buttons, Vellant will terminate correctly.",
                    "Currently does not support style overrides for MapInfo region borders (MapX "
                    "supported).",
                    "Initial sizing of label style override sample is not correct for MapInfo.",
                    "[Sizing of style override sample for MapX is correct and fits neatly within "
                    "the cell.]",
                    "With the 'immediate' option set, changes made in MapInfo will only be shown "
                    "in an active instance of Vellant if the 'Refresh' button is clicked.",
                    "In the current version, there is no equivalent to the THEMATIC and HOTLINK "
                    "buttons in MapInfo Layer Control."}) +
           kBreak + kBreak +
           section(" MapX", {"Feature style override settings function for a single selected "
                             "layer. Only the first of grouped or multiple selected layers will "
                             "change."});
}

std::string environmentTopic() {
    return topic(
        heading("Operating Environment"),
        {"MapInfo Professional version 5.5, 6.0, 6.5, 7.0(Beta) tested and supported. Should "
         "function on earlier versions back to 3.0",
         "Run as a tool from MapInfo tools directory, from a MapBasic or MapX application.",
         "Windows operating systems: Win98, Win/NT, Win 2000. Not tested on Windows XP.",
         "Because of some differences in the map and layer object between MapInfo and MapX, some "
         "attribute columns are applicable to one or other product. Columns appear grayed if not "
         "applicable. Tested on all MapInfo table types with the exception of server layers (in "
         "version 1).",
         "Disk space requirement: 2 Mb", "MapX version 4.51 is the minimum supported version.",
         "Installer makes no changes to registry. Installs msflexgrid, comdlg32, msmapi32 "
         "controls and supporting DLLs as the only system directory additions. Vellant ActiveX "
         "executables are added to the installation directory. A preferences file accumulates "
         "accessed map information in the installation directory (which must be writeable)."});
}

// How a MapX program calls the server, as code to copy.
std::string mapXSampleTopic() {
    return topic(
        " MapX Sample Code ",
        {lines({"Dim vl As Object", "Dim answer As String",
                "Set vl = CreateObject(\"VellantX.vllayer\")",
                "Map1.Title.Caption = \"Map 1\""
                " ' Set the map title to allow Vellant preferences to be retained, ",
                "Map1.Title.Visible = False ' but dont show on map! ", "answer = vl.RunLayer(Map1)",
                "If answer = \"ok\" Then", "    ' user clicked OK",
                "ElseIf answer = \"cancel\" Then", "    ' user clicked CANCEL", "End If",
                "Map1.AutoRedraw = True", "Set vl = Nothing"})});
}

} // namespace

std::string infoWelcomeText() {
    return std::string(kBreak) + kBreak + heading("Vellant Information") + kBreak + kBreak;
}

std::string infoTopicText(InfoTopic which) {
    switch (which) {
    case InfoTopic::Cell:
        return cellTopic();
    case InfoTopic::Accept:
        return topic(heading("EXIT Vellant and ACCEPT changes"),
                     {kIfNotImmediate,
                      "When you exit and ACCEPT changes, defined groups are save and restored when "
                      "you next open run Vellant on a Map window of the same name and with "
                      "matching layer names."});
    case InfoTopic::ExitWithoutChanges:
        return topic(heading("EXIT Vellant and Ignore changes"), {kIfNotImmediate});
    case InfoTopic::Immediate:
        return topic(heading("IMMEDIATE Button"),
                     {"With this option checked, changes are made directly to your Mapper. "
                      "Otherwise, they are made to the view Mapper and applied to your Map when "
                      "you exit with the ACCEPT button."});
    case InfoTopic::Docking:
        return topic(heading("DOCKING mode"),
                     {" In FLOATING mode, Vellant window is independent of MapInfo. You may use "
                      "immediate updates or see your changes in the map viewer before accepting "
                      "them. ",
                      " In DOCKED mode, Vellant window is attached to the bottom of the MapInfo "
                      "window. You may resize the top and bottom position of the form. Changes "
                      "are made to your Mapper immediately. "});
    case InfoTopic::Redraw:
        return topic(heading("REDRAW now"),
                     {"If you make changes to the Mapper whilst Vellant is running, REDRAW will "
                      "cause Vellant to update the grid for these changes."});
    case InfoTopic::OnTop:
        return topic(heading("Keep Vellant on top"),
                     {" Use this with DOCKED mode to ensure you can readily switch between MapInfo "
                      "and Vellant. Turn off if it impacts on other applications you may wish to "
                      "switch to. Click the Vellant toolbar button at any time to start Vellant "
                      "or bring it into the foreground. "});
    case InfoTopic::StatusBar:
        return topic(heading("Show MapInfo Status bar"),
                     {" Vellant in DOCKED mode attaches to the base of the MapInfo window. Your "
                      "preferred status bar setting may need to be reset."});
    case InfoTopic::Limits:
        return limitsTopic();
    case InfoTopic::Environment:
        return environmentTopic();
    case InfoTopic::MapXSample:
        return mapXSampleTopic();
    }
    return {};
}

} // namespace vellant::support
