#include "app/LevelFileDialog.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QLineEdit>

namespace {

class LevelFileDialog : public QFileDialog {
public:
    LevelFileDialog(QWidget *parent, AcceptMode mode)
        : QFileDialog(parent, QString(), QStringLiteral("./levels/"),
                      QCoreApplication::translate("editorMain", "xml grids (*.xml)")) {
        // The toolkit's own dialog asks about replacing a file after accept(), see below.
        setOption(DontUseNativeDialog);
        setAcceptMode(mode);
        setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
    }

    QString ask() { return exec() == Accepted ? selectedFiles().value(0) : QString(); }

protected:
    void accept() override {
        auto *const typed = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (acceptMode() == AcceptSave && typed != nullptr && namesFile(typed->text())) {
            // The toolkit takes quotes for marks around several names.
            typed->setText(withLevelSuffix(typed->text().remove(u'"')));
        }
        QFileDialog::accept();
    }

private:
    /// Nothing typed, and folders to go into, are left to the toolkit.
    bool namesFile(const QString &text) const {
        const bool fromHome = text == QLatin1String("~") || text.startsWith(QLatin1String("~/"));
        const QString path = fromHome ? QDir::homePath() + text.mid(1) : text;
        return !text.isEmpty() && !text.endsWith(u'/') && !QFileInfo(directory(), path).isDir();
    }
};

} // namespace

QString withLevelSuffix(const QString &fileName) {
    const QString suffix = QStringLiteral(".xml");
    return fileName.endsWith(suffix, Qt::CaseInsensitive) ? fileName : fileName + suffix;
}

QString askForLevelToOpen(QWidget *parent) {
    return LevelFileDialog(parent, QFileDialog::AcceptOpen).ask();
}

QString askForLevelToSave(QWidget *parent) {
    return LevelFileDialog(parent, QFileDialog::AcceptSave).ask();
}
