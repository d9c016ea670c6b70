#pragma once
// Message map entries that call a window's member function, one line an entry:
//   {WM_COMMAND, cmd::Find, OnMessage<&CMyWnd::OnFind>}
// The member gets what its parameters ask for: the message's (wParam, lParam), the CCmdUI of
// an update (in lParam), the command id and the CCmdUI, the command id alone (the low word of
// wParam), or nothing. A member without a result answers 0.
#include <type_traits>

#include "CWnd.h"

namespace message_handlers {
template <class>
struct MemberOf;
template <class Result, class Window, class... Arguments>
struct MemberOf<Result (Window::*)(Arguments...)> {
    using type = Window;
};
}  // namespace message_handlers

template <auto Member>
LRESULT OnMessage(CWnd* window, WPARAM wParam, LPARAM lParam) {
    using M = decltype(Member);
    using W = typename message_handlers::MemberOf<M>::type*;
    W self = static_cast<W>(window);
    auto call = [&] {
        if constexpr (std::is_invocable_v<M, W>) return (self->*Member)();
        else if constexpr (std::is_invocable_v<M, W, WPARAM, LPARAM>) return (self->*Member)(wParam, lParam);
        else if constexpr (std::is_invocable_v<M, W, CCmdUI*>) return (self->*Member)(reinterpret_cast<CCmdUI*>(lParam));
        else if constexpr (std::is_invocable_v<M, W, UINT, CCmdUI*>)
            return (self->*Member)(UINT(wParam), reinterpret_cast<CCmdUI*>(lParam));
        else return (self->*Member)(UINT(LOWORD(wParam)));
    };
    if constexpr (std::is_void_v<decltype(call())>) {
        call();
        return 0;
    } else {
        return LRESULT(call());
    }
}
