#include "app/brief/product_brief.h"

#include <QFont>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSizeF>
#include <QTextOption>

namespace vellant::brief {

namespace {

constexpr double kMarginMillimetres = 18.0;
constexpr double kMillimetresPerInch = 25.4;

// The brief's words. Rich text of the subset QTextDocument lays out: a title band, two columns
// of sections, a strip of facts at the foot.
const char* const kBriefHtml = R"(
<table width="100%" cellpadding="14" cellspacing="0" bgcolor="#1f4e79">
<tr><td>
<p style="color:#ffffff; font-size:26pt; font-weight:bold; margin:0">Vellant</p>
<p style="color:#dce8f4; font-size:13pt; margin:0">One grid for every layer of your map</p>
<p style="color:#dce8f4; font-size:9pt; margin-top:6px">Product brief &#183; version 1.00 Beta (01)</p>
</td></tr>
</table>

<p style="font-size:11pt; margin-top:14px">Vellant takes the place of a map host's layer-control
dialog. It shows one spreadsheet-like grid: a row for each layer of the map in front, and a column
for each thing a layer can be told &mdash; visible, selectable, editable, nodes, centroids and
directions, automatic labels and every label setting, zoom limits, a style override with a sample
of the style, the feature count, the table's file and coordinate system, and a column of your own
that evaluates a MapBasic expression for each layer.</p>

<table width="100%" cellpadding="6" cellspacing="0">
<tr>
<td width="50%" valign="top">
<h3 style="color:#1f4e79">Work on a view, accept when it is right</h3>
<p>Changes go to a private view copy of your map, shown beside the grid. Press OK and the map you
started from takes them all; press Cancel and it is as it was. Turn on IMMEDIATE and every change
goes straight to your map instead.</p>

<h3 style="color:#1f4e79">A click does the work</h3>
<p>A toggle cell turns a setting on or off. Select several layers and a click steps through four
choices: toggle each layer, apply the clicked layer's new setting to all, apply its old setting to
all, or put every layer back as it was. Text and list cells open a small editor in place; style
cells open the host's style picker; the label position has its own nine-button picker.</p>

<h3 style="color:#1f4e79">Groups for large maps</h3>
<p>Gather layers into named groups and collapse a group to one master row: a click on the master
changes every layer of the group. Related columns fold under one heading. Groups and your own
column are remembered for each map title and come back the next time.</p>
</td>
<td width="50%" valign="top">
<h3 style="color:#1f4e79">Two hosts, one grid</h3>
<p><b>MapInfo Professional.</b> A small companion program inside MapInfo starts Vellant from
its tool bar; Vellant works the map in front through MapBasic commands and hears back from
MapInfo as you work.</p>
<p><b>MapX applications.</b> A program hands its map object to Vellant and gets back
&ldquo;ok&rdquo; or &ldquo;cancel&rdquo;.</p>
<p>On Linux Vellant brings its own map host: a MapBasic interpreter over MapInfo TAB and MIF
tables, shapefiles, GeoJSON and TopoJSON read with GDAL, with map windows, labels, styles and a
renderer.</p>

<h3 style="color:#1f4e79">Floating or docked</h3>
<p>The <b>floating</b> form stands on its own, with the view map under the grid. The
<b>docked</b> form sits along the bottom edge of MapInfo's window and follows it when it moves,
is maximised or minimised; drag its top edge and it keeps the height you chose.</p>

<h3 style="color:#1f4e79">Help at hand</h3>
<p>The information button explains every control and lists the known limitations. The problem
report opens a mail to support in your mail program, ready for your description and the log.</p>
</td>
</tr>
</table>

<table width="100%" cellpadding="10" cellspacing="0" bgcolor="#eef3f8" style="margin-top:10px">
<tr><td>
<p style="font-size:9pt; margin:0"><b>Settings and files.</b> Vellant.prf in the application
directory keeps the window settings (immediate, docked, kept height, status bar, on top) and the
stored map groups; Vellant.log records what went wrong, one line at a time.
<b>Runs on</b> Linux with Qt 6 and GDAL.</p>
</td></tr>
</table>
)";

} // namespace

std::unique_ptr<QTextDocument> productBriefDocument() {
    auto document = std::make_unique<QTextDocument>();
    QFont font("Liberation Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(10.0);
    document->setDefaultFont(font);
    const QSizeF a4 = QPageSize(QPageSize::A4).size(QPageSize::Inch);
    document->setPageSize(
        QSizeF(a4.width() * kLayoutDotsPerInch, a4.height() * kLayoutDotsPerInch));
    document->setDocumentMargin(kMarginMillimetres / kMillimetresPerInch * kLayoutDotsPerInch);
    document->setHtml(QString::fromUtf8(kBriefHtml));
    return document;
}

bool writeProductBrief(const QString& path) {
    QPdfWriter writer(path);
    writer.setTitle("Vellant product brief");
    writer.setCreator("Vellant");
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    const std::unique_ptr<QTextDocument> document = productBriefDocument();
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    // The layout's dots become the writer's finer ones.
    const double scale = writer.resolution() / kLayoutDotsPerInch;
    painter.scale(scale, scale);
    const QSizeF page = document->pageSize();
    for (int index = 0; index < document->pageCount(); ++index) {
        if (index > 0) writer.newPage();
        painter.save();
        painter.translate(0, -page.height() * index);
        document->drawContents(&painter, QRectF(QPointF(0, page.height() * index), page));
        painter.restore();
    }
    return painter.end();
}

} // namespace vellant::brief
