#include "ui/message_prompts.h"

#include "platform/file_endings.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

namespace pistaro {

namespace {

constexpr const char* Title = "Pistaro";

QWidget* Owner() {
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* const active = QApplication::activeWindow()) return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(windows, [](const QWidget* window) { return window->isVisible(); });
    return shown == windows.end() ? nullptr : *shown;
}

QMessageBox::Icon BoxIcon(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// A box whose text is shown as it stands: the names of files and folders in it may look like markup.
class PlainBox : public QMessageBox {
public:
    PlainBox(QMessageBox::Icon icon, const std::string& text, StandardButtons buttons)
        : QMessageBox(icon, Title, QString(), buttons, Owner()) {
        setTextFormat(Qt::PlainText);
        setText(QString::fromStdString(text));
    }
};

/// A filter "name|pattern;pattern|..." as the names and patterns of a dialog.
struct Filters {
    explicit Filters(const std::string& filter) {
        const QStringList parts = QString::fromStdString(filter).split('|');
        for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
            const QStringList patterns = parts[i + 1].split(';');
            const QString name = parts[i].section('(', 0, 0).trimmed();
            Names.append(name + " (" + patterns.join(' ') + ")");
            Patterns.append(patterns);
        }
    }

    QString WithEnding(const QString& file, bool keepsOthers) const {
        const auto matches = [&](const QString& pattern) { return file.endsWith(pattern.mid(1), Qt::CaseInsensitive); };
        const bool keeps = Patterns.isEmpty() || std::any_of(Patterns.begin(), Patterns.end(), matches) ||
                           (keepsOthers && TellsFormat(PathFromText(file.toStdString())));
        return keeps ? file : file + Patterns.first().mid(1);
    }

    /// A proposed file's name with the ending of the filter that was chosen after it, where it has that of another.
    QString WithEndingOf(const QString& filter, const QString& file) const {
        if (!Names.contains(filter)) return file;
        const QString ending = Patterns.value(Names.indexOf(filter)).mid(1);
        for (const QString& pattern : Patterns) {
            const QString other = pattern.mid(1);
            if (file.endsWith(other, Qt::CaseInsensitive)) return file.chopped(other.size()) + ending;
        }
        return file;
    }

    QStringList Names, Patterns;
};

} // namespace

MessagePrompts::MessagePrompts()
    : OpenFolder([](const std::filesystem::path& folder) {
          QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(TextFromPath(folder))));
      }) {}

void MessagePrompts::Tell(const Message& message) {
    PlainBox(BoxIcon(message.Icon), message.Text, QMessageBox::Ok).exec();
}

void MessagePrompts::TellWritten(const std::filesystem::path& file, const std::string& more) {
    const std::filesystem::path whole = std::filesystem::absolute(file);
    PlainBox box(QMessageBox::Information, WrittenText(whole, more), QMessageBox::Ok);
    const QPushButton* const open = box.addButton("Open &Folder", QMessageBox::ActionRole);
    box.setEscapeButton(QMessageBox::Ok);
    box.exec();
    if (box.clickedButton() == open) OpenFolder(whole.parent_path());
}

Answer MessagePrompts::Ask(const std::string& question, Buttons buttons) {
    const bool okCancel = buttons == Buttons::OkCancel;
    PlainBox box(QMessageBox::Question, question,
                 okCancel ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Yes | QMessageBox::No);
    // Enter and Escape must not lose a design.
    const auto harmless = okCancel ? QMessageBox::Cancel : QMessageBox::No;
    box.setDefaultButton(harmless);
    box.setEscapeButton(harmless);
    const int answer = box.exec();
    if (okCancel) return answer == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
    return answer == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

Answer MessagePrompts::AskWhether(const std::string& question, const std::string& action) {
    PlainBox box(QMessageBox::Question, question, QMessageBox::Cancel);
    QPushButton* const does = box.addButton(QString::fromStdString(action), QMessageBox::AcceptRole);
    box.setDefaultButton(does);
    box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == does ? Answer::Ok : Answer::Cancel;
}

std::optional<std::filesystem::path> MessagePrompts::ChooseFile(const FileChoice& choice) {
    const Filters filters(choice.Filter);
    QFileDialog dialog(Owner(), QString::fromStdString(choice.Title), QString::fromStdString(choice.Folder));
    dialog.setAcceptMode(choice.Saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(choice.Saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the program asks itself
    dialog.setNameFilters(filters.Names);
    if (!choice.DefaultName.empty())
        dialog.selectFile(filters.WithEnding(QString::fromStdString(choice.DefaultName), false));
    const bool hasOneEndingEach = filters.Names.size() == filters.Patterns.size();
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        if (!choice.Saving || !hasOneEndingEach || dialog.selectedFiles().isEmpty()) return;
        const QString file = dialog.selectedFiles().constFirst();
        const QString proposed = filters.WithEndingOf(filter, file);
        if (proposed != file && !QFileInfo(file).isDir()) dialog.selectFile(proposed);
    });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QString file = dialog.selectedFiles().constFirst();
    return PathFromText((choice.Saving ? filters.WithEnding(file, choice.KeepsEnding) : file).toStdString());
}

} // namespace pistaro
