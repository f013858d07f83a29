// The toolkit's blocking dialogs: message boxes, popup menus and the open dialog.

#include "platform/form.h"
#include "platform/menu_item.h"
#include "platform/message_box.h"
#include "qtui/toolkit/desk_automation.h"
#include "qtui/toolkit/qt_toolkit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <map>
#include <stdexcept>

namespace vellant::qtui {

namespace {

QMessageBox::StandardButton standardButton(int answer) {
    switch (answer) {
    case platform::vbOK:
        return QMessageBox::Ok;
    case platform::vbCancel:
        return QMessageBox::Cancel;
    case platform::vbAbort:
        return QMessageBox::Abort;
    case platform::vbRetry:
        return QMessageBox::Retry;
    case platform::vbIgnore:
        return QMessageBox::Ignore;
    case platform::vbYes:
        return QMessageBox::Yes;
    case platform::vbNo:
        return QMessageBox::No;
    default:
        return QMessageBox::NoButton;
    }
}

QMessageBox::Icon iconOf(int style) {
    switch (style & 0x70) {
    case platform::vbCritical:
        return QMessageBox::Critical;
    case platform::vbQuestion:
        return QMessageBox::Question;
    case platform::vbExclamation:
        return QMessageBox::Warning;
    case platform::vbInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

// "Tables (*.tab)|*.tab|All files (*.*)|*.*" as Qt's "Tables (*.tab);;All files (*)".
QString qtFilter(const std::string& filter, int index, QString& selected) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts[i + 1];
        pattern.replace(';', ' ').replace(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << QStringLiteral("%1 (%2)").arg(parts[i], pattern);
    }
    if (index >= 1 && index <= filters.size()) selected = filters[index - 1];
    return filters.join(QStringLiteral(";;"));
}

} // namespace

int QtToolkit::MsgBox(const std::string& prompt, int style, const std::string& title) {
    const std::vector<int> offered = platform::messageBoxButtons(style);
    int answer = platform::messageBoxDefault(style);
    const std::optional<int> planned = automation_ != nullptr
                                           ? automation_->messageBoxAnswer(prompt, offered, answer)
                                           : std::nullopt;

    QString text = QString::fromStdString(prompt);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox box(iconOf(style), QString::fromStdString(title.empty() ? "Vellant" : title), text,
                    QMessageBox::NoButton, dialogParent());
    std::map<QAbstractButton*, int> answers;
    for (const int offer : offered)
        answers[static_cast<QAbstractButton*>(box.addButton(standardButton(offer)))] = offer;
    box.setDefaultButton(standardButton(answer));
    if (std::find(offered.begin(), offered.end(), platform::vbCancel) != offered.end())
        box.setEscapeButton(standardButton(platform::vbCancel));
    else if (offered.size() == 1)
        box.setEscapeButton(standardButton(offered.front()));
    if (planned) {
        QTimer::singleShot(0, &box, [this, &box, planned] {
            if (QAbstractButton* button = box.button(standardButton(*planned)))
                automation_->click(*button, button->rect().center());
        });
    }
    // The box wants the ordinary pointer, whatever the program has set.
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    ++dialogDepth_;
    box.exec();
    --dialogDepth_;
    QGuiApplication::restoreOverrideCursor();
    const auto chosen = answers.find(box.clickedButton());
    if (chosen != answers.end()) answer = chosen->second;
    if (onMessage) onMessage(prompt, style, title, answer);
    return answer;
}

void QtToolkit::PopupMenu(platform::Form& form, platform::MenuItem& menu) {
    const std::optional<std::string> choice =
        automation_ != nullptr ? automation_->popupChoice(menu.Name()) : std::nullopt;
    if (choice && !choice->empty() && menu.findItem(*choice) == nullptr)
        throw std::invalid_argument("script chooses '" + *choice + "', which menu '" + menu.Name() +
                                    "' does not have");

    QMenu popup(viewOf(form));
    popup.setObjectName(QString::fromStdString(menu.Name()));
    std::map<QAction*, platform::MenuItem*> items;
    QAction* wanted = nullptr;
    for (platform::MenuItem* item : menu.Items()) {
        if (!item->Visible()) continue;
        if (item->isSeparator()) {
            popup.addSeparator();
            continue;
        }
        QAction* action = popup.addAction(QString::fromStdString(item->Caption()));
        action->setObjectName(QString::fromStdString(item->Name()));
        action->setEnabled(item->Enabled());
        action->setCheckable(item->Checked());
        action->setChecked(item->Checked());
        items[action] = item;
        if (choice && *choice == item->Name()) wanted = action;
    }
    if (choice) {
        QTimer::singleShot(0, &popup, [this, &popup, wanted] {
            // A gray item cannot be chosen: the menu just closes, as it does without a choice.
            if (wanted != nullptr && wanted->isEnabled())
                automation_->click(popup, popup.actionGeometry(wanted).center());
            else
                automation_->key(popup, Qt::Key_Escape);
        });
    }
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    ++dialogDepth_;
    QAction* chosen = popup.exec(QCursor::pos());
    --dialogDepth_;
    QGuiApplication::restoreOverrideCursor();
    const auto item = items.find(chosen);
    if (item != items.end()) item->second->Click();
}

std::string QtToolkit::ShowOpen(const platform::OpenDialogRequest& request) {
    if (automation_ != nullptr)
        if (const std::optional<std::string> file = automation_->openFileChoice(request))
            return *file;
    QString selected;
    const QString filter = qtFilter(request.Filter, request.FilterIndex, selected);
    QString start = QString::fromStdString(request.InitDir);
    if (!request.FileName.empty())
        start = start.isEmpty() ? QString::fromStdString(request.FileName)
                                : start + '/' + QString::fromStdString(request.FileName);
    ++dialogDepth_;
    const QString file = QFileDialog::getOpenFileName(
        dialogParent(), QString::fromStdString(request.DialogTitle), start, filter, &selected);
    --dialogDepth_;
    return file.toStdString();
}

} // namespace vellant::qtui
