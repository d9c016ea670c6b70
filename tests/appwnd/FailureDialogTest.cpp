// When the engine window cannot be made the user is told, and the launcher starts if asked.
#include <QCheckBox>
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "AppWindow.h"
#include "CEditorFailDlg.h"
#include "CKTUtil.h"

namespace {
// A "Launcher" beside the test program that leaves a mark when it runs.
class FakeLauncher {
public:
    FakeLauncher() : path_(CKTFile::GetAppFolder().toQString() + "/Launcher"), mark_(dir_.filePath("ran")) {
        QFile script(path_);
        script.open(QIODevice::WriteOnly);
        script.write(QString("#!/bin/sh\ntouch '%1'\n").arg(mark_).toUtf8());
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ~FakeLauncher() { QFile::remove(path_); }
    bool ran() {
        for (int i = 0; i < 50 && !QFile::exists(mark_); ++i) QTest::qWait(20);
        return QFile::exists(mark_);
    }

private:
    QTemporaryDir dir_;
    QString path_;
    QString mark_;
};

// Answers the failure dialog with a button and the check box state.
struct Answer {
    int button;
    bool checkLauncher;
};

DialogHook answer(Answer a, int* shown) {
    return [a, shown](CDialog& dialog) {
        ++*shown;
        EXPECT_STREQ(dialog.GetRuntimeClassName(), "CEditorFailDlg");
        qobject_cast<QCheckBox*>(dialog.GetDlgItem(CEditorFailDlg::IDC_RUN_LAUNCHER))->setChecked(a.checkLauncher);
        return a.button;
    };
}
}  // namespace

TEST_F(AppWindowTest, FailedCreationAsksAndStartsTheLauncherOnlyWhenAskedTo) {
    CWnd noWindow;  // a parent without a window makes creation fail
    for (Answer a : {Answer{IDOK, false}, Answer{IDCANCEL, true}}) {
        FakeLauncher launcher;
        int shown = 0;
        DialogHook previous = SetDialogHook(answer(a, &shown));
        TestAppWindow failing;
        EXPECT_EQ(failing.Create("x", WS_CHILD, RECT{0, 0, 10, 10}, &noWindow, 1), 0);
        SetDialogHook(previous);
        EXPECT_EQ(shown, 1);
        EXPECT_FALSE(launcher.ran());
    }
    FakeLauncher launcher;
    int shown = 0;
    DialogHook previous = SetDialogHook(answer({IDOK, true}, &shown));
    TestAppWindow failing;
    EXPECT_EQ(failing.Create("x", WS_CHILD, RECT{0, 0, 10, 10}, &noWindow, 1), 0);
    SetDialogHook(previous);
    EXPECT_TRUE(launcher.ran());
}

TEST(FailureDialog, LaysOutItsControlsInDialogUnits) {
    CEditorFailDlg dialog;
    QImage picture;
    DialogHook previous = SetDialogHook([&](CDialog& d) {
        d.dialog()->show();
        picture = d.dialog()->grab().toImage();
        if (const char* out = getenv("QUILLBOX_SHOT_DIR")) picture.save(QString(out) + "/editor-fail-dialog.png");
        return IDCANCEL;
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    SetDialogHook(previous);
    EXPECT_EQ(dialog.runLauncher, 0);
    ASSERT_FALSE(picture.isNull());
    auto* ok = qobject_cast<QPushButton*>(dialog.GetDlgItem(IDOK));
    auto* cancel = qobject_cast<QPushButton*>(dialog.GetDlgItem(IDCANCEL));
    ASSERT_TRUE(ok && cancel);
    EXPECT_TRUE(ok->isDefault());
    // The buttons keep the template's proportions: equal size, Cancel right of OK on one row.
    EXPECT_EQ(ok->size(), cancel->size());
    EXPECT_EQ(ok->y(), cancel->y());
    EXPECT_GT(cancel->x(), ok->x() + ok->width());
    EXPECT_LT(ok->y() + ok->height(), dialog.dialog()->height());
}
