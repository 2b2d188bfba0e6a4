// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/WindowFileQuestions.h"

#include "app/files/ExportDialog.h"
#include "host/formats/FormatRegistry.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/ui/StoredSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QSet>
#include <QStandardPaths>

namespace {

constexpr char folderKey[] = "/Files/folder";
/// File names in one question.
constexpr int mostNames = 8;

/// The folder used last, or the user's documents where that is gone.
QString folder()
{
    QString const known = storedValue(QLatin1String(folderKey)).toString();
    return !known.isEmpty() && QDir(known).exists()
               ? known
               : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void rememberFolderOf(QString const& file)
{
    if (!file.isEmpty())
        storeValue(QLatin1String(folderKey), QFileInfo(file).absolutePath());
}

QString latin(std::string_view text)
{
    return QString::fromLatin1(text.data(), int(text.size()));
}

/// "*.stl *.STL ...": the dialogs of some systems tell cases apart.
QString patternsOfAllFormats()
{
    QStringList patterns;
    for (auto const& format : Formats::FormatRegistry::instance().formats())
        for (std::string_view const extension : format->extensions())
            for (QString const& form : {latin(extension), latin(extension).toUpper()})
                if (!patterns.contains("*." + form))
                    patterns.push_back("*." + form);
    return patterns.join(' ');
}

QString suggestedPath(QString const& suggestion)
{
    return QFileInfo(suggestion).isAbsolute() ? suggestion : QDir(folder()).filePath(suggestion);
}

}  // namespace

QStringList WindowFileQuestions::filesToOpen()
{
    QStringList const files = QFileDialog::getOpenFileNames(
        MainWindow::getInstance(), tr("Open"), folder(),
        tr("Parts and projects (%1)").arg(patternsOfAllFormats()) + ";;" + tr("All files (*)"));
    if (!files.isEmpty())
        rememberFolderOf(files.front());
    return files;
}

QString WindowFileQuestions::projectToSave(QString const& suggestion)
{
    QString const file =
        QFileDialog::getSaveFileName(MainWindow::getInstance(), tr("Save Project"),
                                     suggestedPath(suggestion), tr("3MF project (*.3mf)"));
    rememberFolderOf(file);
    return file;
}

std::optional<ExportPlan> WindowFileQuestions::exportPlan(ExportOffer const& offer)
{
    ExportDialog dialog(offer, MainWindow::getInstance());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    ExportPlan plan{{}, dialog.format(), dialog.isOneFilePerPart(), dialog.takesHidden()};
    Formats::MeshFormat const& format =
        *Formats::FormatRegistry::instance().byName(plan.format.toStdString());
    QString const ending = "." + latin(format.extensions().front());
    if (plan.isOneFilePerPart) {
        plan.path = QFileDialog::getExistingDirectory(MainWindow::getInstance(),
                                                      tr("Export to Folder"), folder());
        rememberFolderOf(QDir(plan.path).filePath("part"));
    } else {
        QString safe = offer.suggestion;
        safe.replace('/', '_');
        plan.path = QFileDialog::getSaveFileName(
            MainWindow::getInstance(), tr("Export"), suggestedPath(safe + ending),
            QCoreApplication::translate("Formats", std::string(format.title()).c_str()) + " (*" +
                ending + ")");
        if (!plan.path.isEmpty() && QFileInfo(plan.path).suffix().isEmpty()) {
            plan.path += ending;
            if (QFileInfo::exists(plan.path) && !mayReplace({plan.path}))
                return {};
        }
        rememberFolderOf(plan.path);
    }
    if (plan.path.isEmpty())
        return {};
    return plan;
}

bool WindowFileQuestions::mayReplace(QStringList const& files)
{
    QStringList names;
    for (QString const& file : files.mid(0, mostNames))
        names.push_back(QFileInfo(file).fileName());
    if (files.size() > mostNames)
        names.push_back(tr("and %n more", nullptr, files.size() - mostNames));
    return MellMessageBox::warning(
               MainWindow::getInstance(), tr("Replace"),
               tr("%n files exist already. Replace them?", nullptr, files.size()) + "\n\n" +
                   names.join('\n'),
               tr("Replace"), tr("Cancel"), "", 1, 1) == 0;
}

FileQuestions::Unsaved WindowFileQuestions::aboutUnsaved(QString const& documentName)
{
    int const answer = MellMessageBox::warning(
        MainWindow::getInstance(), tr("Unsaved Changes"),
        tr("\"%1\" has changes that are not saved. Save them?").arg(documentName), tr("Save"),
        tr("Discard"), tr("Cancel"), 0, 2);
    return answer == 0 ? Unsaved::Save : answer == 1 ? Unsaved::Discard : Unsaved::Cancel;
}

FileQuestions::Changed WindowFileQuestions::aboutChanged(QString const& documentName)
{
    int const answer = MellMessageBox::warning(
        MainWindow::getInstance(), tr("Changed on Disk"),
        tr("\"%1\" was changed by another program or window. Replacing it loses these changes.")
            .arg(documentName),
        tr("Replace"), tr("Save As..."), tr("Cancel"), 1, 2);
    return answer == 0 ? Changed::Replace : answer == 1 ? Changed::SaveElsewhere : Changed::Cancel;
}

void WindowFileQuestions::tell(QString const& text)
{
    MellMessageBox::warning(MainWindow::getInstance(),
                            QCoreApplication::translate("MellCommons", "Attention"), text,
                            QCoreApplication::translate("MellCommons", "OK"), "", "", 0, -1);
}
