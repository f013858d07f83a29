#pragma once
// The product brief "vellantpb.pdf" that the information form opens: what Vellant is, the two
// hosts, the grid and the forms, on one or two A4 pages. The build writes it next to the demo
// data, the desktop program's working directory.

#include <QString>
#include <QTextDocument>
#include <memory>

namespace vellant::brief {

inline constexpr const char* kProductBriefFile = "vellantpb.pdf";

// The brief laid out on A4 pages of kLayoutDotsPerInch; a page is drawn scaled to the device.
inline constexpr double kLayoutDotsPerInch = 96.0;
std::unique_ptr<QTextDocument> productBriefDocument();

// Writes the brief as a PDF; false when the file cannot be written. Needs a QGuiApplication.
bool writeProductBrief(const QString& path);

} // namespace vellant::brief
