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
            typed->setText(withLevelSuffix(typed->text()));
        }
        QFileDialog::accept();
    }

private:
    /// Nothing typed, and folders to go into, are left to the toolkit.
    bool namesFile(const QString &text) const {
        return !text.isEmpty() && text != QLatin1String("~") && !text.endsWith(u'/') &&
               !QFileInfo(directory(), text).isDir();
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
