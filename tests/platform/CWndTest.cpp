#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <vector>

#include "CWnd.h"
#include "MessageHandlers.h"
#include "System.h"

namespace {
constexpr UINT kPing = WM_USER + 1, kCommandA = 100, kCommandB = 200;
const RECT kRect{0, 0, 5, 5};

// A base window class and a derived one, each with a message map, to prove the derived map
// wins and falls back to the base map.
class BaseWindow : public CWnd {
public:
    std::vector<CString> log;
    int createResult = 0;
    LRESULT OnPing(WPARAM wParam, LPARAM) { log.push_back("base ping"); return LRESULT(wParam) + 1; }
    void OnA() { log.push_back("base A"); }
    LRESULT OnCreate(WPARAM, LPARAM) { return createResult; }

protected:
    const MessageMap* GetMessageMap() const override { return GetThisMessageMap(); }
    static const MessageMap* GetThisMessageMap() {
        static const MessageMapEntry entries[] = {{kPing, 0, OnMessage<&BaseWindow::OnPing>},
            {WM_COMMAND, kCommandA, OnMessage<&BaseWindow::OnA>}, {WM_CREATE, 0, OnMessage<&BaseWindow::OnCreate>}};
        static const MessageMap map{CWnd::GetThisMessageMap(), entries, std::size(entries)};
        return &map;
    }
};

class DerivedWindow : public BaseWindow {
public:
    void OnB() { log.push_back("derived B"); }

protected:
    const MessageMap* GetMessageMap() const override {
        static const MessageMapEntry entries[] = {{WM_COMMAND, kCommandB, OnMessage<&DerivedWindow::OnB>}};
        static const MessageMap map{BaseWindow::GetThisMessageMap(), entries, std::size(entries)};
        return &map;
    }
};
}  // namespace

TEST(CWnd, MessageMapsDispatchAndFallBackToTheBaseClass) {
    DerivedWindow w;
    ASSERT_TRUE(w.CreateEx(0, "QuillboxFrame", "w", 0, kRect, nullptr, 7));
    EXPECT_EQ(w.SendMessage(kPing, 41, 0), 42);
    EXPECT_TRUE(w.SendMessage(WM_COMMAND, MakeCommandWParam(kCommandA), 0) == 0);
    w.SendMessage(WM_COMMAND, MakeCommandWParam(kCommandB, 1), 0);
    w.SendMessage(WM_COMMAND, MakeCommandWParam(999), 0);  // no handler: nothing happens
    EXPECT_EQ(w.SendMessage(WM_USER + 77, 0, 0), 0);
    EXPECT_EQ(w.log, (std::vector<CString>{"base ping", "base A", "derived B"}));
    EXPECT_EQ(w.GetDlgCtrlID(), 7u);
}

// Creation fails for an unknown class, a refusing handler or a parent without a window; a
// posted message arrives later and never at a destroyed window; the main window clears with it.
TEST(CWnd, WindowsLiveAndDieWithTheirObjects) {
    BaseWindow w;
    EXPECT_FALSE(w.PostMessage(kPing));
    EXPECT_FALSE(w.CreateEx(0, "NoSuchClass", "", 0, kRect, nullptr, 0));
    EXPECT_EQ(GetLastError(), ERROR_CANNOT_FIND_WND_CLASS_CODE);
    w.createResult = -1;
    EXPECT_FALSE(w.CreateEx(0, "QuillboxFrame", "", 0, kRect, nullptr, 0));
    EXPECT_EQ(w.GetSafeHwnd(), nullptr);
    CWnd parentWithoutWindow;
    EXPECT_FALSE(BaseWindow().CreateEx(0, "QuillboxFrame", "", 0, kRect, &parentWithoutWindow, 0));

    auto* main = new BaseWindow;
    ASSERT_TRUE(main->CreateEx(0, "QuillboxFrame", "", 0, kRect, nullptr, 0));
    AfxSetMainWnd(main);
    EXPECT_EQ(AfxGetMainWnd(), main);
    EXPECT_TRUE(main->PostMessage(kPing, 1, 0));
    EXPECT_TRUE(main->log.empty());
    QApplication::processEvents();
    EXPECT_EQ(main->log.size(), 1u);
    main->PostMessage(kPing, 1, 0);
    delete main;  // the queued message must be dropped, not delivered to freed memory
    QApplication::processEvents();
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
}

TEST(CWnd, ParentsAndHostWidgets) {
    QWidget hostWidget;
    CWnd* host = CWnd::FromWidget(&hostWidget);
    ASSERT_NE(host, nullptr);
    EXPECT_EQ(CWnd::FromWidget(&hostWidget), host);
    BaseWindow child;
    ASSERT_TRUE(child.CreateEx(0, "QuillboxFrame", "", WS_CHILD | WS_VISIBLE, kRect, host, 3));
    EXPECT_EQ(child.GetParent(), host);
    EXPECT_EQ(child.GetSafeHwnd()->parentWidget(), &hostWidget);
    EXPECT_EQ(CWnd::FromHandle(child.GetSafeHwnd()), &child);

    // A parent that deletes its widgets takes the child's window too; the object stays safe.
    auto* owner = new QWidget;
    BaseWindow orphan;
    ASSERT_TRUE(orphan.CreateEx(0, "QuillboxFrame", "", 0, kRect, CWnd::FromWidget(owner), 0));
    delete owner;
    EXPECT_EQ(orphan.GetSafeHwnd(), nullptr);
    EXPECT_EQ(orphan.SendMessage(kPing, 1, 0), 2);
}
