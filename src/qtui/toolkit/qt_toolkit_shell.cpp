// The toolkit's shell: mail through the desktop's mail composer, documents through the
// desktop's opener, the machine's name.

#include "base/runtime_error.h"
#include "qtui/toolkit/qt_toolkit.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>
#include <QUrl>

namespace vellant::qtui {

namespace {

// What the mail system answers when there is no mail program to sign on to.
constexpr int kErrMailFailure = 32002;

QString mailProgramPath(const std::string& program) {
    const QString name = QString::fromStdString(program);
    if (QFileInfo(name).isAbsolute()) return QFileInfo(name).isExecutable() ? name : QString();
    return QStandardPaths::findExecutable(name);
}

} // namespace

void QtToolkit::mailSignOn() {
    // There is no mail session on this desktop, only a composer to hand the mail to; signing
    // on is finding it.
    if (mailProgramPath(mailProgram_).isEmpty())
        throw RuntimeError(kErrMailFailure, "Unspecified failure has occurred");
    mailSession_ = true;
}

void QtToolkit::composeMail(const platform::MailMessage& message) {
    const QString program = mailProgramPath(mailProgram_);
    if (program.isEmpty()) throw RuntimeError(kErrMailFailure, "Unspecified failure has occurred");
    QStringList arguments{QStringLiteral("--utf8"), QStringLiteral("--subject"),
                          QString::fromStdString(message.MsgSubject), QStringLiteral("--body"),
                          QString::fromStdString(message.MsgNoteText)};
    for (const std::string& file : message.attachments)
        arguments << QStringLiteral("--attach") << QString::fromStdString(file);
    arguments << QString::fromStdString(message.RecipAddress);
    if (!QProcess::startDetached(program, arguments))
        throw RuntimeError(kErrMailFailure, "Unspecified failure has occurred");
}

bool QtToolkit::launchDocument(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    if (!file.exists()) return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

std::string QtToolkit::ComputerName() const {
    return QSysInfo::machineHostName().toStdString();
}

} // namespace vellant::qtui
