// When the engine window cannot be made the user is told, and the launcher starts if asked.
#include <QCheckBox>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QTemporaryDir>

#include "AppWindow.h"
#include "CEditorFailDlg.h"
#include "CKTUtil.h"

TEST_F(AppWindowTest, FailedCreationAsksAndStartsTheLauncherOnlyWhenAskedTo) {
    const QString launcher = CKTFile::GetAppFolder().toQString() + "/Launcher";
    CWnd noWindow;  // a parent without a window makes creation fail
    for (auto [button, check] : {std::pair{IDOK, false}, {IDCANCEL, true}, {IDOK, true}}) {
        // A "Launcher" beside the test program that leaves a mark when it runs.
        QTemporaryDir dir;
        const QString mark = dir.filePath("ran");
        QFile script(launcher);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(QString("#!/bin/sh\ntouch '%1'\n").arg(mark).toUtf8());
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        int shown = 0;
        DialogHook previous = SetDialogHook([&](CDialog& dialog) {
            ++shown;
            EXPECT_STREQ(dialog.GetRuntimeClassName(), "CEditorFailDlg");
            qobject_cast<QCheckBox*>(dialog.GetDlgItem(CEditorFailDlg::IDC_RUN_LAUNCHER))->setChecked(check);
            return button;
        });
        TestAppWindow failing;
        EXPECT_EQ(failing.Create("x", WS_CHILD, RECT{0, 0, 10, 10}, &noWindow, 1), 0);
        SetDialogHook(previous);
        EXPECT_EQ(shown, 1);
        for (int i = 0; i < 50 && !QFile::exists(mark); ++i) QTest::qWait(20);
        EXPECT_EQ(QFile::exists(mark), button == IDOK && check);
        QFile::remove(launcher);
    }
}

TEST(FailureDialog, LaysOutItsControlsInDialogUnits) {
    CEditorFailDlg dialog;
    QImage picture;
    DialogHook previous = SetDialogHook([&](CDialog& d) {
        d.dialog()->show();
        picture = d.dialog()->grab().toImage();
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
