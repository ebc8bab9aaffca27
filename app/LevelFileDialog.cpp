#include "app/LevelFileDialog.h"

#include "scene/SaveTarget.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <chrono>

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
        field = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        table = findChild<QTreeView *>(QStringLiteral("treeView"));
        showWholeColumns();
        // After the toolkit's own slot, which does not know that names are completed or explained.
        connect(field, &QLineEdit::textChanged, this, &LevelFileDialog::updateButton);
        connect(field, &QLineEdit::textEdited, this, [this] { complaint.clear(); });
    }
    LevelFileDialog(const LevelFileDialog &) = delete;
    LevelFileDialog &operator=(const LevelFileDialog &) = delete;

    // The toolkit keeps the header's state for the file dialogs of every program.
    ~LevelFileDialog() override { table->header()->setSectionResizeMode(QHeaderView::Interactive); }

    QString ask() { return exec() == Accepted ? selectedFiles().value(0) : QString(); }

    /// Puts a file into the field: by its way from the folder that is shown, where it lies below.
    void propose(const QString &fileName) {
        const QString way = directory().relativeFilePath(QFileInfo(fileName).absoluteFilePath());
        field->setText(way.startsWith(QLatin1String("../")) ? QFileInfo(fileName).absoluteFilePath() : way);
        field->selectAll();
    }

    /// Says why the name in the field does not do, now or as soon as the dialog shows.
    void complain(const QString &why) {
        complaint = why;
        // What the toolkit offers to complete the name would cover the tool tip.
        field->completer()->popup()->hide();
        field->setFocus();
        field->selectAll();
        showComplaint();
        // The end of those offers may come back from the window system and hide the tool tip.
        constexpr std::chrono::milliseconds soon{200};
        QTimer::singleShot(soon, this, &LevelFileDialog::showComplaint);
    }

protected:
    void accept() override {
        if (field->text().isEmpty()) {
            QFileDialog::accept();
            return;
        }
        // The toolkit takes quotes for marks around several names, and prefers what is selected in
        // its list to what is typed.
        table->selectionModel()->clearSelection();
        field->setText(field->text().remove(u'"'));
        if (acceptMode() == AcceptOpen) {
            completeName();
        } else if (!namesFolderToGoInto()) {
            if (!field->text().endsWith(u'/')) {
                field->setText(withLevelSuffix(field->text()));
            }
            if (const QString why = whyNotWritable(selectedFiles().value(0)); !why.isEmpty()) {
                complain(why);
                return;
            }
        }
        QFileDialog::accept();
    }

    void changeEvent(QEvent *event) override {
        QFileDialog::changeEvent(event);
        if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
            // Becoming active hides tool tips.
            QTimer::singleShot(0, this, &LevelFileDialog::showComplaint);
        }
    }

private:
    void showWholeColumns() {
        constexpr int charactersPerRow = 110;
        resize(size().expandedTo({fontMetrics().averageCharWidth() * charactersPerRow, 0}));
        table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }

    /// A folder is entered, except where its name would be a level's.
    bool namesFolderToGoInto() const {
        const bool levelName = field->text() == withLevelSuffix(field->text());
        return !levelName && QFileInfo(selectedFiles().value(0)).isDir();
    }

    bool needsSuffix() const {
        const QString file = selectedFiles().value(0);
        return !QFileInfo::exists(file) && QFileInfo(withLevelSuffix(file)).isFile();
    }

    void completeName() {
        if (needsSuffix()) {
            field->setText(withLevelSuffix(field->text()));
        }
    }

    void updateButton() {
        // The toolkit takes a file for absent whose suffix is another than the list's.
        const bool usable = acceptMode() == AcceptSave
                                ? !field->text().isEmpty()
                                : needsSuffix() || QFileInfo(selectedFiles().value(0)).isFile();
        if (auto *const buttons = findChild<QDialogButtonBox *>(); usable && buttons != nullptr) {
            buttons->button(acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open)
                ->setEnabled(true);
        }
    }

    void showComplaint() {
        if (!complaint.isEmpty() && isVisible()) {
            // The toolkit moves it down from there, to make room for a pointer.
            constexpr int up = 8;
            QToolTip::showText(field->mapToGlobal(QPoint(0, field->height() - up)), complaint, field);
        }
    }

    QLineEdit *field = nullptr;
    QTreeView *table = nullptr;
    QString complaint; ///< About the text in the field.
};

} // namespace

QString withLevelSuffix(const QString &fileName) {
    const QString suffix = QStringLiteral(".xml");
    return fileName.endsWith(suffix, Qt::CaseInsensitive) ? fileName : fileName + suffix;
}

QString askForLevelToOpen(QWidget *parent) {
    return LevelFileDialog(parent, QFileDialog::AcceptOpen).ask();
}

QString askForLevelToSave(QWidget *parent, const QString &proposal, const QString &complaint) {
    LevelFileDialog dialog(parent, QFileDialog::AcceptSave);
    if (!proposal.isEmpty()) {
        dialog.propose(proposal);
    }
    if (!complaint.isEmpty()) {
        dialog.complain(complaint);
    }
    return dialog.ask();
}
