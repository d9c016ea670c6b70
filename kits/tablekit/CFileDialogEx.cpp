#include "CFileDialogEx.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <mutex>

#include "MessageBox.h"

namespace {
std::mutex hookLock;
FileDialogHook& currentHook() {
    static FileDialogHook hook;
    return hook;
}

// Qt reads the patterns of a name filter from its last parentheses and accepts only these
// characters there; a pattern with any other character would make it read the whole filter,
// label included, as patterns. Spaces separate patterns in Qt, so a space inside a pipe-form
// pattern becomes "?", which still matches it.
bool usablePattern(const QString& pattern) {
    static const QString extra = QStringLiteral("_.,*?+#-[]@{}/!<>$%&=^~:");
    return std::all_of(pattern.begin(), pattern.end(), [](QChar c) {
        return (c.unicode() < 0x80 && c.isLetterOrNumber()) || extra.contains(c);
    });
}

QStringList splitPatterns(const QString& text, bool spacesSeparate) {
    QStringList patterns;
    QString normalised = text;
    normalised.replace(u',', u';');
    if (spacesSeparate) normalised.replace(u' ', u';');
    for (QString pattern : normalised.split(u';', Qt::SkipEmptyParts)) {
        pattern = pattern.trimmed();
        pattern.replace(u' ', u'?');
        // "*.*" means every file, names without a dot too; in Qt that is "*".
        if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
        if (pattern.isEmpty() || !usablePattern(pattern) || patterns.contains(pattern)) continue;
        patterns << pattern;
    }
    return patterns;
}

// The non-native dialog with one more check before it accepts: the owner refuses a path the
// flags do not allow, and the dialog stays open.
class CheckedFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;
    std::function<bool()> mayAccept;

    void accept() override {
        if (mayAccept && !mayAccept()) return;
        QFileDialog::accept();
    }
};

bool canShowModal() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           QGuiApplication::platformName() != QLatin1String("offscreen");
}
}  // namespace

FileDialogHook SetFileDialogHook(FileDialogHook hook) {
    std::lock_guard<std::mutex> guard(hookLock);
    FileDialogHook previous = std::move(currentHook());
    currentHook() = std::move(hook);
    return previous;
}

QStringList CFileDialogEx::ConvertFilter(const char* filter) {
    QStringList result;
    const QStringList parts = QString::fromUtf8(filter ? filter : "").split(u'|');
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString label = parts[i].trimmed();
        // An empty label ends the list, as the closing "||" does.
        if (label.isEmpty()) break;
        QStringList patterns = i + 1 < parts.size() ? splitPatterns(parts[i + 1], false) : QStringList();

        // A label usually repeats its patterns in parentheses, "SQL Files (*.sql)". They are
        // replaced by the real ones, which Qt reads from there, and stand in for missing ones.
        QString shown = label;
        const qsizetype open = label.lastIndexOf(u'(');
        if (label.endsWith(u')') && open >= 0) {
            const QString inside = label.mid(open + 1, label.size() - open - 2);
            if (inside.contains(u'*') || inside.contains(u'?')) {
                shown = label.left(open).trimmed();
                if (patterns.isEmpty()) patterns = splitPatterns(inside, true);
            }
        }
        if (patterns.isEmpty()) patterns << QStringLiteral("*");
        if (shown.isEmpty()) shown = patterns.join(u' ');
        result << shown + QStringLiteral(" (") + patterns.join(u' ') + u')';
    }
    if (result.isEmpty())
        result << QCoreApplication::translate("Quillbox", "All Files") + QStringLiteral(" (*)");
    return result;
}

CFileDialogEx::CFileDialogEx(int openFileDialog, const char* defaultExtension, const char* fileName,
                             unsigned long flags, const char* filter, CWnd* parent, unsigned long /*size*/,
                             int /*vistaStyle*/)
    : openMode_(openFileDialog != 0), defaultExtension_(defaultExtension), proposedName_(fileName) {
    ofn_.Flags = DWORD(flags);
    defaultExtension_.TrimLeft(".");
    build(parent, filter);
}

CFileDialogEx::~CFileDialogEx() {
    QFileDialog* dialog = dialog_.data();
    Detach();
    delete dialog;
}

QFileDialog* CFileDialogEx::fileDialog() const { return dialog_.data(); }

QComboBox* CFileDialogEx::subTypeCombo() const { return subTypeCombo_.data(); }

void CFileDialogEx::build(CWnd* parent, const char* filter) {
    // Widgets need a QApplication; without one the dialog stays empty and DoModal cancels.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    auto* dialog = new CheckedFileDialog(parent ? parent->GetSafeHwnd() : nullptr);
    dialog->setOption(QFileDialog::DontUseNativeDialog, true);
    dialog->setAcceptMode(openMode_ ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog->setNameFilters(ConvertFilter(filter));
    dialog->mayAccept = [this] {
        const QString path = chosenPath();
        // A folder typed as the name is opened by the dialog itself, not accepted.
        return path.isEmpty() || QFileInfo(path).isDir() || acceptable(path);
    };
    dialog_ = dialog;
    Attach(dialog);

    auto* label = new QLabel(QCoreApplication::translate("Quillbox", "Encoding:"), dialog);
    auto* combo = new QComboBox(dialog);
    combo->setObjectName(QStringLiteral("subTypeCombo"));
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    label->setBuddy(combo);
    subTypeLabel_ = label;
    subTypeCombo_ = combo;
    // The widget dialog lays itself out on a grid: label column 0, choice column 1. The sub
    // type takes a new row below the file type.
    if (auto* grid = qobject_cast<QGridLayout*>(dialog->layout())) {
        const int row = grid->rowCount();
        grid->addWidget(label, row, 0);
        grid->addWidget(combo, row, 1);
    } else if (QLayout* layout = dialog->layout()) {
        layout->addWidget(label);
        layout->addWidget(combo);
    }

    // filterSelected comes only from the user's choice in the file type box; a type selected
    // through selectNameFilter changes the box without it, so the box is followed as well.
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog,
                     [this](const QString&) { fillSubTypes(currentFileType(), false); });
    fileNameEdit_ = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    fileTypeCombo_ = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    if (fileTypeCombo_)
        QObject::connect(fileTypeCombo_, &QComboBox::currentIndexChanged, dialog,
                         [this](int) { fillSubTypes(currentFileType(), false); });

    applyFlags();
    fillSubTypes(currentFileType(), true);
}

void CFileDialogEx::applyFlags() {
    if (!dialog_) return;
    const DWORD flags = ofn_.Flags;
    dialog_->setOption(QFileDialog::DontConfirmOverwrite, !(flags & OFN_OVERWRITEPROMPT));
    dialog_->setFileMode(openMode_ && (flags & OFN_FILEMUSTEXIST) ? QFileDialog::ExistingFile
                                                                  : QFileDialog::AnyFile);
    dialog_->setDefaultSuffix(defaultExtension_.toQString());
}

void CFileDialogEx::prepare() {
    applyFlags();
    if (ofn_.lpstrTitle && *ofn_.lpstrTitle) dialog_->setWindowTitle(QString::fromUtf8(ofn_.lpstrTitle));
    if (ofn_.lpstrInitialDir && *ofn_.lpstrInitialDir)
        dialog_->setDirectory(QString::fromUtf8(ofn_.lpstrInitialDir));
    // The file type before the name: in a save dialog a new type changes the name's extension.
    const QStringList filters = dialog_->nameFilters();
    if (ofn_.nFilterIndex >= 1 && ofn_.nFilterIndex <= DWORD(filters.size()))
        dialog_->selectNameFilter(filters.at(qsizetype(ofn_.nFilterIndex - 1)));
    if (!proposedName_.IsEmpty()) EnterFileName(proposedName_);
    fillSubTypes(currentFileType(), true);
}

void CFileDialogEx::MultySubtype(bool on) {
    multiSubtype_ = on;
    fillSubTypes(currentFileType(), true);
}

void CFileDialogEx::AddSubType(int fileTypeIndex, const CString& label, int /*reserved*/) {
    if (fileTypeIndex < 0) return;
    subTypes_.push_back({fileTypeIndex, label});
    fillSubTypes(currentFileType(), true);
}

void CFileDialogEx::SetShowIndex(int index) {
    showIndex_ = index;
    fillSubTypes(currentFileType(), true);
}

void CFileDialogEx::EnterFileName(const CString& nameOrPath) {
    if (!dialog_ || nameOrPath.IsEmpty()) return;
    const QString name = nameOrPath.toQString();
    // A whole path into an existing folder opens that folder with the name in the box, as
    // choosing it in the list would. selectFile cannot take a whole path into a missing folder:
    // it would cut the path down against the folder shown. Such a path goes into the box as
    // typed, where the dialog reads it whole.
    const QFileInfo info(name);
    if (fileNameEdit_ && info.isAbsolute() && !info.absoluteDir().exists()) fileNameEdit_->setText(name);
    else dialog_->selectFile(name);
}

bool CFileDialogEx::SelectFileType(int index) {
    if (!dialog_) return false;
    const QStringList filters = dialog_->nameFilters();
    if (index < 0 || index >= filters.size()) return false;
    dialog_->selectNameFilter(filters.at(index));
    // Two types with the same text: the dialog picks the first, the position tells which.
    if (fileTypeCombo_ && fileTypeCombo_->currentIndex() != index) fileTypeCombo_->setCurrentIndex(index);
    fillSubTypes(currentFileType(), false);
    return true;
}

bool CFileDialogEx::SelectSubType(int index) {
    QComboBox* combo = subTypeCombo_.data();
    if (!combo || index < 0 || index >= combo->count()) return false;
    combo->setCurrentIndex(index);
    return true;
}

int CFileDialogEx::currentFileType() const {
    if (!dialog_) return 0;
    int index = fileTypeCombo_ ? fileTypeCombo_->currentIndex()
                               : int(dialog_->nameFilters().indexOf(dialog_->selectedNameFilter()));
    return std::max(index, 0);
}

std::vector<CString> CFileDialogEx::subTypesOf(int fileTypeIndex) const {
    std::vector<CString> labels;
    for (const SubType& sub : subTypes_)
        if (!multiSubtype_ || sub.fileTypeIndex == fileTypeIndex) labels.push_back(sub.label);
    return labels;
}

void CFileDialogEx::fillSubTypes(int fileTypeIndex, bool force) {
    QComboBox* combo = subTypeCombo_.data();
    if (!combo || (!force && fileTypeIndex == filledFileType_)) return;
    filledFileType_ = fileTypeIndex;
    combo->clear();
    for (const CString& label : subTypesOf(fileTypeIndex)) combo->addItem(label.toQString());
    if (combo->count() > 0)
        combo->setCurrentIndex(showIndex_ >= 0 && showIndex_ < combo->count() ? showIndex_ : 0);
    // A dialog without sub types looks like the plain one; a type without its own list keeps
    // the row in place but has nothing to choose.
    const bool any = !subTypes_.empty();
    combo->setVisible(any);
    if (subTypeLabel_) subTypeLabel_->setVisible(any);
    combo->setEnabled(combo->count() > 0);
}

QString CFileDialogEx::chosenPath() const {
    if (!dialog_) return {};
    QString path = dialog_->selectedFiles().value(0);
    if (path.isEmpty()) return {};
    const QFileInfo info(path);
    if (!defaultExtension_.IsEmpty() && !info.isDir() && !info.fileName().contains(u'.'))
        path += u'.' + defaultExtension_.toQString();
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

bool CFileDialogEx::acceptable(const QString& path) const {
    const QFileInfo info(path);
    const DWORD flags = ofn_.Flags;
    QString problem;
    if ((flags & (OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST)) && !QFileInfo(info.absolutePath()).isDir())
        problem = QCoreApplication::translate("Quillbox", "The folder \"%1\" does not exist.\n"
                                                          "Check the path and try again.")
                      .arg(QDir::toNativeSeparators(info.absolutePath()));
    else if ((flags & OFN_FILEMUSTEXIST) && !info.isFile())
        problem = QCoreApplication::translate("Quillbox", "The file \"%1\" was not found.\n"
                                                          "Check the file name and try again.")
                      .arg(info.fileName());
    if (problem.isEmpty()) return true;
    const QByteArray text = problem.toUtf8();
    const QByteArray caption = dialog_ ? dialog_->windowTitle().toUtf8() : QByteArray();
    MessageBox(dialog_.data(), text.constData(), caption.constData(), MB_OK | MB_ICONWARNING);
    return false;
}

bool CFileDialogEx::takeChoice() {
    if (!dialog_) return false;
    const QString path = chosenPath();
    // No name at all gives the folder itself: nothing was chosen.
    if (path.isEmpty() || QFileInfo(path).isDir() || !acceptable(path)) return false;
    fileTypeIndex_ = currentFileType();
    fillSubTypes(fileTypeIndex_, false);  // in case the type changed without a signal
    const QComboBox* combo = subTypeCombo_.data();
    subIndex_ = combo && combo->count() > 0 ? std::max(combo->currentIndex(), 0) : 0;
    pathName_ = CString::fromQString(path);
    fileName_ = CString::fromQString(QFileInfo(path).fileName());
    ofn_.nFilterIndex = DWORD(fileTypeIndex_ + 1);
    return true;
}

void CFileDialogEx::clearChoice() {
    pathName_.Empty();
    fileName_.Empty();
    subIndex_ = 0;
    fileTypeIndex_ = 0;
}

int CFileDialogEx::DoModal() {
    clearChoice();
    if (!dialog_) return IDCANCEL;
    prepare();
    FileDialogHook hook;
    {
        std::lock_guard<std::mutex> guard(hookLock);
        hook = currentHook();
    }
    int answer;
    if (hook) {
        answer = hook(*this) == IDOK ? IDOK : IDCANCEL;
    } else if (!canShowModal()) {
        answer = IDCANCEL;  // nobody can answer: the safe choice
    } else {
        answer = dialog_->exec() == QDialog::Accepted ? IDOK : IDCANCEL;
    }
    if (answer == IDOK && !takeChoice()) answer = IDCANCEL;
    if (answer != IDOK) clearChoice();
    // A hook answers without the dialog's buttons; end it the way they would have.
    if (QDialog* dialog = dialog_.data(); hook && dialog)
        dialog->done(answer == IDOK ? QDialog::Accepted : QDialog::Rejected);
    return answer;
}
