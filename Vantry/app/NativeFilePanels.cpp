#include "Vantry/app/NativeFilePanels.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QStandardPaths>

namespace vantry {
namespace {

using Content = FilePanels::Content;

QWidget* topmostWindow() {
    if (QWidget* sheet = QApplication::activeModalWidget())
        return sheet;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return window;
    return nullptr;
}

QString text(bool english, const char16_t* zh, const char16_t* en) {
    return QString::fromUtf16(english ? en : zh);
}

QStringList filters(Content content, bool saving, bool english) {
    if (content == Content::image) {
        const QString patterns = QStringLiteral("*.png *.jpg *.jpeg *.heic *.heif *.tif *.tiff");
        // Some desktops compare names letter by letter.
        return {text(english, u"图片", u"Images") +
                QStringLiteral(" (%1 %2)").arg(patterns, patterns.toUpper())};
    }
    if (content == Content::pdf)
        return {QStringLiteral("PDF (*.pdf *.PDF)")};
    return {saving ? QStringLiteral("Vantry (*.vantry)") : QStringLiteral("Vantry (*.vantry *.json)"),
            text(english, u"所有文件 (*)", u"All files (*)")};
}

QString startFolder(const std::filesystem::path& last) {
    for (const QString& folder : {QFile::decodeName(last.c_str()),
                                  QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)})
        if (!folder.isEmpty() && QDir(folder).exists())
            return folder;
    return QDir::homePath();
}

/// Qt's own dialog takes a quotation mark for the edge of one of several names, and any ending for the kind
/// of file.
class FileDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    QString ending;  ///< of every name that is chosen, such as ".pdf"; empty: any

protected:
    void accept() override {
        auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name != nullptr && !ending.isEmpty() && !name->text().isEmpty() &&
            !name->text().endsWith(ending, Qt::CaseInsensitive) && !directory().exists(name->text()))
            name->setText(name->text() + ending);
        QFileDialog::accept();
    }
};

FileDialog* makeDialog(Content content, bool saving, bool english, const std::filesystem::path& last) {
    auto* dialog = new FileDialog(topmostWindow(), QString(), startFolder(last));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setNameFilters(filters(content, saving, english));
    if (content == Content::image)
        dialog->setWindowTitle(text(english, u"导入图片", u"Import image"));
    else if (content == Content::pdf)
        dialog->setWindowTitle(text(english, u"导出 PDF", u"Export PDF"));
    else if (saving)
        dialog->setWindowTitle(text(english, u"导出备份", u"Export backup"));
    else
        dialog->setWindowTitle(text(english, u"导入并合并", u"Import and merge"));
    dialog->setLabelText(QFileDialog::Accept,
                         saving ? text(english, u"导出", u"Export") : text(english, u"导入", u"Import"));
    dialog->setLabelText(QFileDialog::Reject, text(english, u"取消", u"Cancel"));
    dialog->setLabelText(QFileDialog::LookIn, text(english, u"位置：", u"Look in:"));
    dialog->setLabelText(QFileDialog::FileName, text(english, u"文件名：", u"File name:"));
    dialog->setLabelText(QFileDialog::FileType, text(english, u"文件类型：", u"Files of type:"));
    return dialog;
}

}  // namespace

std::optional<std::filesystem::path> NativeFilePanels::open(Content content, bool english) {
    if (opened)
        return std::nullopt;
    return run(makeDialog(content, false, english, lastFolder));
}

std::optional<std::filesystem::path> NativeFilePanels::save(Content content, const std::string& suggestedName,
                                                            bool english) {
    if (opened)
        return std::nullopt;
    auto* dialog = makeDialog(content, true, english, lastFolder);
    dialog->setDefaultSuffix(content == Content::pdf ? QStringLiteral("pdf") : QStringLiteral("vantry"));
    if (content == Content::pdf)
        dialog->ending = QStringLiteral(".pdf");
    static const QRegularExpression withoutQuotes(QStringLiteral("[^\"]*"));
    if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        name->setValidator(new QRegularExpressionValidator(withoutQuotes, dialog));
    dialog->selectFile(QString::fromStdString(suggestedName).replace(QLatin1Char('"'), QLatin1Char('\'')));
    return run(dialog);
}

std::optional<std::filesystem::path> NativeFilePanels::run(QFileDialog* made) {
    const QScopedValueRollback guard(opened, true);
    // It goes with the window that it lies over.
    const QPointer<QFileDialog> dialog(made);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return std::nullopt;
    const QStringList chosen = accepted ? dialog->selectedFiles() : QStringList();
    delete dialog;
    if (chosen.isEmpty() || chosen.front().isEmpty())
        return std::nullopt;
    const std::filesystem::path file = QFile::encodeName(chosen.front()).toStdString();
    lastFolder = file.parent_path();
    return file;
}

}  // namespace vantry
