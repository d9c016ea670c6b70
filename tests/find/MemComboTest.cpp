// The history combo: its list, the shared group histories and their registry copy.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScreen>
#include <memory>

#include "CMemComboBox.h"
#include "Registry.h"
#include "ScratchRegistry.h"

namespace {
class MemComboTest : public ::testing::Test {
protected:
    void SetUp() override {
        CMemComboBox::groups.clear();
        host = std::make_unique<QWidget>();
        host->resize(300, 80);
        box = new QComboBox(host.get());
        box->setEditable(true);
        box->setCompleter(nullptr);
        box->setGeometry(10, 10, 200, 24);
        other = new QLineEdit(host.get());
        other->setGeometry(10, 40, 200, 24);
        combo = std::make_unique<CMemComboBox>();
        ASSERT_TRUE(combo->SubclassWindow(box));
    }
    void TearDown() override {
        combo.reset();
        host.reset();
        CMemComboBox::groups.clear();
    }

    std::string items() {
        std::string all;
        for (int i = 0; i < combo->GetCount(); ++i) {
            CString item;
            combo->GetLBText(i, item);
            all += item.str() + "|";
        }
        return all;
    }

    // Another combo of a group on its own box, with the history taken on focus.
    struct Other {
        QComboBox box;
        CMemComboBox combo;
        Other(QWidget* host, const char* group) : box(host) {
            box.setEditable(true);
            EXPECT_TRUE(combo.SubclassWindow(&box));
            combo.group = group;
            combo.OnSetfocus();
        }
    };
    static HKEY openKey() {
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyEx(HKEY_CURRENT_USER, "SOFTWARE\\Lectern", 0, KEY_ALL_ACCESS, &key), ERROR_SUCCESS);
        return key;
    }

    ScratchRegistry registry;
    std::unique_ptr<QWidget> host;
    QComboBox* box = nullptr;
    QLineEdit* other = nullptr;
    std::unique_ptr<CMemComboBox> combo;
};
}  // namespace

TEST_F(MemComboTest, FillPutsTheTextOnTopOnceKeepsSixtyFourAndStoresOneLineTexts) {
    combo->Fill("");
    combo->Fill(nullptr);
    EXPECT_EQ(combo->GetCount(), 0);
    combo->Fill("no group");  // listed, but without a group nothing is stored
    EXPECT_TRUE(CMemComboBox::groups.empty());
    combo->group = "FindText";
    for (const char* t : {"FIND", "two\nlines", "c", "d", "e", "find"}) combo->Fill(t);
    // The same text in another case moves up, as now given; a text with a line end is listed only.
    EXPECT_EQ(items(), "find|e|d|c|two\nlines|no group|");
    EXPECT_EQ(combo->GetCurSel(), 0);
    EXPECT_EQ(combo->GetWindowText(), "find");
    EXPECT_EQ(CMemComboBox::groups["FindText"], "find\ne\nd\nc\nno group\n");
    EXPECT_EQ(Other(host.get(), "FindText").combo.GetCount(), 5);  // what another combo of the group takes over
    CString none;
    EXPECT_EQ(combo->GetLBText(6, none), CB_ERR);

    for (int i = 0; i < CMemComboBox::kMaxItems; ++i) combo->Fill(CString(std::to_string(i)));
    combo->Fill("new");
    EXPECT_EQ(combo->GetCount(), 64);
    EXPECT_EQ(combo->FindStringExact(-1, "0"), CB_ERR);  // the oldest fell out
    EXPECT_EQ(combo->FindStringExact(-1, "1"), 63);
    combo->Fill("30");
    EXPECT_EQ(combo->GetCount(), 64);
    EXPECT_EQ(combo->FindStringExact(-1, "1"), 63);
    EXPECT_EQ(combo->FindStringExact(-1, "30"), 0);
}

TEST_F(MemComboTest, TheHistoryIsTakenOnceAndOnlyWhereAGroupIsSet) {
    CMemComboBox::groups["G"] = "a\nb\n";
    CMemComboBox::groups["H"] = "x\ny";

    combo->OnSetfocus();  // no group yet: stays pending
    EXPECT_EQ(combo->historyPending, 1);
    combo->Fill("typed first");  // stands above the history, which is appended
    combo->group = "G";
    box->setEditText("draft");
    host->show();  // the real focus event takes the history
    host->activateWindow();
    QApplication::setActiveWindow(host.get());
    box->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(items(), "typed first|a|b|");
    EXPECT_EQ(combo->GetWindowText(), "draft");
    EXPECT_EQ(combo->historyPending, 0);
    combo->OnSetfocus();
    EXPECT_EQ(combo->GetCount(), 3);
    box->lineEdit()->setText("typed");  // leaving keeps what was typed
    other->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(items(), "typed|typed first|a|b|");
    EXPECT_EQ(CMemComboBox::groups["G"], "typed\ntyped first\na\nb\n");

    Other second(host.get(), "H");
    EXPECT_EQ(second.combo.GetCount(), 1);  // a stretch after the last LF is no item
    EXPECT_EQ(second.combo.GetWindowText(), "x");
    Other third(host.get(), "missing");
    EXPECT_EQ(third.combo.GetCount(), 0);
    CMemComboBox::groups["missing"] = "late\n";
    third.combo.OnSetfocus();  // it looked once and will not look again
    EXPECT_EQ(third.combo.GetCount(), 0);
}

TEST_F(MemComboTest, TheListStopsAboveTheScreensLowerEdge) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    host->move(0, screen.bottom() - 100);
    host->show();
    QApplication::processEvents();
    for (int i = 0; i < 40; ++i) combo->Fill(CString(std::to_string(i)));
    const int top = box->mapToGlobal(QPoint(0, 0)).y();
    EXPECT_EQ(top + combo->GetDroppedHeight(), screen.bottom() + 1 - 48);

    host->move(0, 0);
    combo->ResetContent();
    for (const char* item : {"a", "b", "c"}) combo->Fill(item);
    EXPECT_EQ(combo->GetDroppedHeight(), 3 * box->height() + 16);
    EXPECT_GE(combo->GetDroppedWidth(), box->width());
}

TEST_F(MemComboTest, HistoriesGoToTheRegistryAndTheTwoKnownOnesComeBack) {
    CMemComboBox::groups["FindText"] = "f1\nf2\n";
    CMemComboBox::groups["Other"] = "o\n";
    CMemComboBox::LoadSettings();  // no key yet: nothing changes
    EXPECT_EQ(CMemComboBox::groups.size(), 2u);
    CMemComboBox::SaveSettings();

    HKEY key = openKey();
    DWORD type = 0, size = 0;
    ASSERT_EQ(RegQueryValueEx(key, "Other", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 3u);  // with its zero byte
    const char withZero[] = "r1\n\0hidden\n";
    RegSetValueEx(key, "ReplaceText", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(withZero), sizeof withZero);
    RegCloseKey(key);

    CMemComboBox::groups.clear();
    CMemComboBox::LoadSettings();
    EXPECT_EQ(CMemComboBox::groups.size(), 2u);
    EXPECT_EQ(CMemComboBox::groups["FindText"], "f1\nf2\n");
    EXPECT_EQ(CMemComboBox::groups["ReplaceText"], "r1\n");  // up to the first zero byte

    key = openKey();  // a value of another type is passed over and leaves the group as it stands
    const DWORD number = 7;
    RegSetValueEx(key, "FindText", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
    RegCloseKey(key);
    CMemComboBox::LoadSettings();
    EXPECT_EQ(CMemComboBox::groups["FindText"], "f1\nf2\n");
}
