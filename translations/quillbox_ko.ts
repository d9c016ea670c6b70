<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>Quillbox</name>
    <message>
        <source>Can not start printer document.</source>
        <translation>프린터 문서를 시작할 수 없습니다.</translation>
    </message>
    <message>
        <source>Cannot transform text line end due to lack of memory</source>
        <translation>메모리가 부족하여 텍스트 줄 끝을 변환할 수 없습니다</translation>
    </message>
    <message>
        <source>Cannot transform text line end</source>
        <translation>텍스트 줄 끝을 변환할 수 없습니다</translation>
    </message>
    <message>
        <source>Editor Loading Fail</source>
        <translation>편집기 로딩 실패</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Editor loading failed.
This can be caused by a security policy and can be resolved by running it with Tessel Launcher.
Run it with Windows[Start - Tessel - Tessel Launcher].</source>
        <translation>편집기를 불러오지 못했습니다.
보안 정책 때문일 수 있으며, Tessel Launcher로 실행하면 해결할 수 있습니다.
Windows[시작 - Tessel - Tessel Launcher]로 실행하십시오.</translation>
    </message>
    <message>
        <source>Run Tessel Launcher</source>
        <translation>Tessel Launcher 실행</translation>
    </message>
    <message>
        <source>Failed to save file</source>
        <translation>파일을 저장하지 못했습니다</translation>
    </message>
    <message>
        <source>SQL Files (*.sql)|*.sql|Text files (*.txt)|*.txt|All Files (*.*)|*.*||</source>
        <translation>SQL 파일 (*.sql)|*.sql|텍스트 파일 (*.txt)|*.txt|모든 파일 (*.*)|*.*||</translation>
    </message>
    <message>
        <source>ANSI</source>
        <translation>ANSI</translation>
    </message>
    <message>
        <source>Unicode</source>
        <translation>유니코드</translation>
    </message>
    <message>
        <source>All Files</source>
        <translation>모든 파일</translation>
    </message>
    <message>
        <source>Encoding:</source>
        <translation>인코딩:</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; does not exist.
Check the path and try again.</source>
        <translation>&quot;%1&quot; 폴더가 없습니다.
경로를 확인하고 다시 시도하십시오.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; was not found.
Check the file name and try again.</source>
        <translation>&quot;%1&quot; 파일을 찾을 수 없습니다.
파일 이름을 확인하고 다시 시도하십시오.</translation>
    </message>
    <message>
        <source>Go to Line</source>
        <translation>줄로 이동</translation>
    </message>
    <message>
        <source>&amp;Line number:</source>
        <translation>줄 번호(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>확인(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>취소(&amp;C)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>오류</translation>
    </message>
    <message>
        <source>Cannot Load Menu</source>
        <translation>메뉴를 불러올 수 없습니다</translation>
    </message>
    <message>
        <source>Can not find the string &quot;%1&quot;</source>
        <translation>문자열 &quot;%1&quot;을(를) 찾을 수 없습니다</translation>
    </message>
    <message>
        <source>Find string must not be empty for &apos;Replace in Selection&apos; command. : Find string must not be empty for &apos;Replace All&apos; command.</source>
        <translation>&apos;선택 영역에서 바꾸기&apos; 명령에는 찾을 문자열이 있어야 합니다. : &apos;모두 바꾸기&apos; 명령에는 찾을 문자열이 있어야 합니다.</translation>
    </message>
    <message>
        <source>Selection must not be empty for &apos;Replace in Selection&apos; command.</source>
        <translation>&apos;선택 영역에서 바꾸기&apos; 명령에는 선택 영역이 있어야 합니다.</translation>
    </message>
    <message>
        <source>No replacements because string &quot;%1&quot; was not present.</source>
        <translation>문자열 &quot;%1&quot;이(가) 없어서 바꾸지 않았습니다.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>바꾸기</translation>
    </message>
    <message>
        <source>Fi&amp;nd what:</source>
        <translation>찾을 내용(&amp;N):</translation>
    </message>
    <message>
        <source>Re&amp;place with:</source>
        <translation>바꿀 내용(&amp;P):</translation>
    </message>
    <message>
        <source>Match &amp;whole word only </source>
        <translation>단어 단위로(&amp;W) </translation>
    </message>
    <message>
        <source>Match &amp;case </source>
        <translation>대/소문자 구분(&amp;C) </translation>
    </message>
    <message>
        <source>R&amp;egular Expression </source>
        <translation>정규식(&amp;E) </translation>
    </message>
    <message>
        <source>Replace in</source>
        <translation>바꿀 범위</translation>
    </message>
    <message>
        <source>&amp;Selection </source>
        <translation>선택 영역(&amp;S) </translation>
    </message>
    <message>
        <source>Wh&amp;ole file </source>
        <translation>파일 전체(&amp;O) </translation>
    </message>
    <message>
        <source>&amp;Find Next</source>
        <translation>다음 찾기(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>바꾸기(&amp;R)</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>모두 바꾸기(&amp;A)</translation>
    </message>
    <message>
        <source>%d Items Replaced</source>
        <translation>%d개 항목을 바꾸었습니다</translation>
    </message>
    <message>
        <source>%d Item Replaced</source>
        <translation>%d개 항목을 바꾸었습니다</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>찾기</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>방향</translation>
    </message>
    <message>
        <source>&amp;Up </source>
        <translation>위로(&amp;U) </translation>
    </message>
    <message>
        <source>&amp;Down </source>
        <translation>아래로(&amp;D) </translation>
    </message>
    <message>
        <source>Delete the word after the caret
Delete Word(Ctrl+Del)</source>
        <translation>캐럿 뒤의 단어를 삭제합니다
단어 삭제(Ctrl+Del)</translation>
    </message>
    <message>
        <source>Delete the character after the caret or the selection
Delete(Del)</source>
        <translation>캐럿 뒤의 문자나 선택 영역을 삭제합니다
삭제(Del)</translation>
    </message>
    <message>
        <source>Delete the character before the caret
Backward Delete(Backspace)</source>
        <translation>캐럿 앞의 문자를 삭제합니다
앞 문자 삭제(Backspace)</translation>
    </message>
    <message>
        <source>Delete the word before the caret
Backward Delete Word(Ctrl+Backspace)</source>
        <translation>캐럿 앞의 단어를 삭제합니다
앞 단어 삭제(Ctrl+Backspace)</translation>
    </message>
    <message>
        <source>Indent the selected lines by one tab
Increase Indent(Tab)</source>
        <translation>선택한 줄을 탭 하나만큼 들여 씁니다
들여쓰기(Tab)</translation>
    </message>
    <message>
        <source>Unindent the selected lines by one tab
Decrease Indent(Shift+Tab)</source>
        <translation>선택한 줄을 탭 하나만큼 내어 씁니다
내어쓰기(Shift+Tab)</translation>
    </message>
    <message>
        <source>Move the caret one character left
Left</source>
        <translation>캐럿을 한 문자 왼쪽으로 옮깁니다
왼쪽</translation>
    </message>
    <message>
        <source>Move the caret one character right
Right</source>
        <translation>캐럿을 한 문자 오른쪽으로 옮깁니다
오른쪽</translation>
    </message>
    <message>
        <source>Move the caret one word left
Word Left(Ctrl+Left)</source>
        <translation>캐럿을 한 단어 왼쪽으로 옮깁니다
왼쪽 단어(Ctrl+Left)</translation>
    </message>
    <message>
        <source>Move the caret one word right
Word Right(Ctrl+Right)</source>
        <translation>캐럿을 한 단어 오른쪽으로 옮깁니다
오른쪽 단어(Ctrl+Right)</translation>
    </message>
    <message>
        <source>Move the caret one line up
Line Up</source>
        <translation>캐럿을 한 줄 위로 옮깁니다
위 줄</translation>
    </message>
    <message>
        <source>Move the caret one line down
Line Down</source>
        <translation>캐럿을 한 줄 아래로 옮깁니다
아래 줄</translation>
    </message>
    <message>
        <source>Scroll the text one line up
Scroll Up(Ctrl+Up)</source>
        <translation>텍스트를 한 줄 위로 스크롤합니다
위로 스크롤(Ctrl+Up)</translation>
    </message>
    <message>
        <source>Scroll the text one line down
Scroll Down(Ctrl+Down)</source>
        <translation>텍스트를 한 줄 아래로 스크롤합니다
아래로 스크롤(Ctrl+Down)</translation>
    </message>
    <message>
        <source>Move the caret one page up
Page Up</source>
        <translation>캐럿을 한 페이지 위로 옮깁니다
이전 페이지</translation>
    </message>
    <message>
        <source>Move the caret one page down
Page Down</source>
        <translation>캐럿을 한 페이지 아래로 옮깁니다
다음 페이지</translation>
    </message>
    <message>
        <source>Move the caret to the end of the line
Line End(End)</source>
        <translation>캐럿을 줄 끝으로 옮깁니다
줄 끝(End)</translation>
    </message>
    <message>
        <source>Move the caret to the start of the line
Line Head(Home)</source>
        <translation>캐럿을 줄 처음으로 옮깁니다
줄 처음(Home)</translation>
    </message>
    <message>
        <source>Move the caret to the start of the text
Editor Head(Ctrl+Home)</source>
        <translation>캐럿을 텍스트 처음으로 옮깁니다
문서 처음(Ctrl+Home)</translation>
    </message>
    <message>
        <source>Move the caret to the end of the text
Editor End(Ctrl+End)</source>
        <translation>캐럿을 텍스트 끝으로 옮깁니다
문서 끝(Ctrl+End)</translation>
    </message>
    <message>
        <source>Find the previous occurrence of the text
Find Previous(Shift+F3)</source>
        <translation>텍스트의 이전 위치를 찾습니다
이전 찾기(Shift+F3)</translation>
    </message>
    <message>
        <source>Toggle Bookmark
Toggle Bookmark(Ctrl+F2)</source>
        <translation>책갈피 설정/해제
책갈피 설정/해제(Ctrl+F2)</translation>
    </message>
    <message>
        <source>Go to the next bookmark
Next Bookmark(F2)</source>
        <translation>다음 책갈피로 갑니다
다음 책갈피(F2)</translation>
    </message>
    <message>
        <source>Go to the previous bookmark
Previous Bookmark(Shift+F2)</source>
        <translation>이전 책갈피로 갑니다
이전 책갈피(Shift+F2)</translation>
    </message>
    <message>
        <source>Clear all bookmarks
Clear All Bookmarks(Ctrl+Shift+F2)</source>
        <translation>모든 책갈피를 지웁니다
모든 책갈피 지우기(Ctrl+Shift+F2)</translation>
    </message>
    <message>
        <source>Complete the word at the caret
Auto Complete(Ctrl+Space)</source>
        <translation>캐럿 위치의 단어를 완성합니다
자동 완성(Ctrl+Space)</translation>
    </message>
    <message>
        <source>Go to the matching bracket
Match Bracket(Ctrl+[])</source>
        <translation>짝이 되는 괄호로 갑니다
괄호 짝 찾기(Ctrl+[])</translation>
    </message>
    <message>
        <source>Make the selection lower case
Lower Case(Ctrl+U)</source>
        <translation>선택 영역을 소문자로 바꿉니다
소문자(Ctrl+U)</translation>
    </message>
    <message>
        <source>Make the selection upper case
Upper Case(Ctrl+Shift+U)</source>
        <translation>선택 영역을 대문자로 바꿉니다
대문자(Ctrl+Shift+U)</translation>
    </message>
    <message>
        <source>Capitalize the words of the selection
Capitalize</source>
        <translation>선택 영역의 단어 첫 글자를 대문자로 바꿉니다
첫 글자 대문자</translation>
    </message>
    <message>
        <source>Make the selection sentence case
Sentencize</source>
        <translation>선택 영역을 문장형 대소문자로 바꿉니다
문장형</translation>
    </message>
    <message>
        <source>Invert the case of the selection
Invert Case</source>
        <translation>선택 영역의 대소문자를 뒤집습니다
대소문자 반전</translation>
    </message>
    <message>
        <source>Go to a line
Go to Line(Ctrl+G)</source>
        <translation>지정한 줄로 갑니다
줄 이동(Ctrl+G)</translation>
    </message>
    <message>
        <source>Select Visual Basic Code to copy SQL to clipboard
Visual Basic Code</source>
        <translation>SQL을 Visual Basic 코드로 클립보드에 복사합니다
Visual Basic 코드</translation>
    </message>
    <message>
        <source>Select C/C++ Code to copy SQL to clipboard
C/C++ Code</source>
        <translation>SQL을 C/C++ 코드로 클립보드에 복사합니다
C/C++ 코드</translation>
    </message>
    <message>
        <source>Select PowerBuilder Code to copy SQL to clipboard
PowerBuilder Code</source>
        <translation>SQL을 PowerBuilder 코드로 클립보드에 복사합니다
PowerBuilder 코드</translation>
    </message>
    <message>
        <source>Select Visual Basic Code to paste SQL from clipboard
Visual Basic Code</source>
        <translation>클립보드의 Visual Basic 코드를 SQL로 붙여넣습니다
Visual Basic 코드</translation>
    </message>
    <message>
        <source>Select C/C++ Code to paste SQL from clipboard
C/C++ Code</source>
        <translation>클립보드의 C/C++ 코드를 SQL로 붙여넣습니다
C/C++ 코드</translation>
    </message>
    <message>
        <source>Select PowerBuilder Code to paste SQL from clipboard
PowerBuilder Code</source>
        <translation>클립보드의 PowerBuilder 코드를 SQL로 붙여넣습니다
PowerBuilder 코드</translation>
    </message>
    <message>
        <source>Select Delphi Code to copy SQL to clipboard
Delphi Code</source>
        <translation>SQL을 Delphi 코드로 클립보드에 복사합니다
Delphi 코드</translation>
    </message>
    <message>
        <source>Select Delphi Code to paste SQL from clipboard
Delphi Code</source>
        <translation>클립보드의 Delphi 코드를 SQL로 붙여넣습니다
Delphi 코드</translation>
    </message>
    <message>
        <source>Select Java Code to copy SQL to clipboard
Java Code</source>
        <translation>SQL을 Java 코드로 클립보드에 복사합니다
Java 코드</translation>
    </message>
    <message>
        <source>Select Java Code to paste SQL from clipboard
Java Code</source>
        <translation>클립보드의 Java 코드를 SQL로 붙여넣습니다
Java 코드</translation>
    </message>
    <message>
        <source>Select Perl Code to copy SQL to clipboard
Perl Code</source>
        <translation>SQL을 Perl 코드로 클립보드에 복사합니다
Perl 코드</translation>
    </message>
    <message>
        <source>Select Perl Code to paste SQL from clipboard
Perl Code</source>
        <translation>클립보드의 Perl 코드를 SQL로 붙여넣습니다
Perl 코드</translation>
    </message>
    <message>
        <source>Select PHP Code to copy SQL to clipboard
PHP Code</source>
        <translation>SQL을 PHP 코드로 클립보드에 복사합니다
PHP 코드</translation>
    </message>
    <message>
        <source>Select PHP Code to paste SQL from clipboard
PHP Code</source>
        <translation>클립보드의 PHP 코드를 SQL로 붙여넣습니다
PHP 코드</translation>
    </message>
    <message>
        <source>Select MFC Code to copy SQL to clipboard
MFC Code</source>
        <translation>SQL을 MFC 코드로 클립보드에 복사합니다
MFC 코드</translation>
    </message>
    <message>
        <source>Select C# Code to copy SQL to clipboard
C# Code</source>
        <translation>SQL을 C# 코드로 클립보드에 복사합니다
C# 코드</translation>
    </message>
    <message>
        <source>Select MFC Code to paste SQL from clipboard
MFC Code</source>
        <translation>클립보드의 MFC 코드를 SQL로 붙여넣습니다
MFC 코드</translation>
    </message>
    <message>
        <source>Select C# Code to paste SQL from clipboard
C# Code</source>
        <translation>클립보드의 C# 코드를 SQL로 붙여넣습니다
C# 코드</translation>
    </message>
    <message>
        <source>Clear the whole text
Clear Content</source>
        <translation>텍스트 전체를 지웁니다
내용 지우기</translation>
    </message>
    <message>
        <source>Copy the selection to the clipboard
Copy(Ctrl+C)</source>
        <translation>선택 영역을 클립보드에 복사합니다
복사(Ctrl+C)</translation>
    </message>
    <message>
        <source>Cut the selection to the clipboard
Cut(Ctrl+X)</source>
        <translation>선택 영역을 잘라 클립보드에 넣습니다
잘라내기(Ctrl+X)</translation>
    </message>
    <message>
        <source>Find the specified text
Find(Ctrl+F)</source>
        <translation>지정한 텍스트를 찾습니다
찾기(Ctrl+F)</translation>
    </message>
    <message>
        <source>Insert the clipboard&apos;s text
Paste(Ctrl+V)</source>
        <translation>클립보드의 텍스트를 넣습니다
붙여넣기(Ctrl+V)</translation>
    </message>
    <message>
        <source>Find the next occurrence of the text
Find Next(F3)</source>
        <translation>텍스트의 다음 위치를 찾습니다
다음 찾기(F3)</translation>
    </message>
    <message>
        <source>Replace the specified text with another
Replace(Ctrl+H)</source>
        <translation>지정한 텍스트를 다른 텍스트로 바꿉니다
바꾸기(Ctrl+H)</translation>
    </message>
    <message>
        <source>Select the whole text
Select All(Ctrl+A)</source>
        <translation>텍스트 전체를 선택합니다
모두 선택(Ctrl+A)</translation>
    </message>
    <message>
        <source>Undo the last change
Undo(Ctrl+Z)</source>
        <translation>마지막 변경을 취소합니다
실행 취소(Ctrl+Z)</translation>
    </message>
    <message>
        <source>Redo the last undone change
Redo(Ctrl+Y)</source>
        <translation>취소한 변경을 다시 실행합니다
다시 실행(Ctrl+Y)</translation>
    </message>
    <message>
        <source>Option
Option</source>
        <translation>옵션
옵션</translation>
    </message>
    <message>
        <source>Ln 999999, Col 9999</source>
        <translation>줄 999999, 열 9999</translation>
    </message>
    <message>
        <source>&amp;Find...	Ctrl+F</source>
        <translation>찾기(&amp;F)...	Ctrl+F</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>다음 찾기(&amp;N)</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>이전 찾기</translation>
    </message>
    <message>
        <source>R&amp;eplace...	Ctrl+H</source>
        <translation>바꾸기(&amp;E)...	Ctrl+H</translation>
    </message>
    <message>
        <source>Match Bracket	Ctrl+[]</source>
        <translation>괄호 짝 찾기	Ctrl+[]</translation>
    </message>
    <message>
        <source>Match Select Bracket	Ctrl+Shift+[]</source>
        <translation>괄호 짝까지 선택	Ctrl+Shift+[]</translation>
    </message>
    <message>
        <source>Delete	Del</source>
        <translation>삭제	Del</translation>
    </message>
    <message>
        <source>Backward Delete 	Backspace</source>
        <translation>앞 문자 삭제 	Backspace</translation>
    </message>
    <message>
        <source>Delete Word	Ctrl+Del</source>
        <translation>단어 삭제	Ctrl+Del</translation>
    </message>
    <message>
        <source>Backward Delete Word	Ctrl+Backspace</source>
        <translation>앞 단어 삭제	Ctrl+Backspace</translation>
    </message>
    <message>
        <source>&amp;Go to Line...	Ctrl+G</source>
        <translation>줄 이동(&amp;G)...	Ctrl+G</translation>
    </message>
    <message>
        <source>Line Down	Down</source>
        <translation>아래 줄	Down</translation>
    </message>
    <message>
        <source>Scroll Down	Ctrl+Down</source>
        <translation>아래로 스크롤	Ctrl+Down</translation>
    </message>
    <message>
        <source>Line Up	Up</source>
        <translation>위 줄	Up</translation>
    </message>
    <message>
        <source>Scroll Up	Ctrl+Up</source>
        <translation>위로 스크롤	Ctrl+Up</translation>
    </message>
    <message>
        <source>Left	Left</source>
        <translation>왼쪽	Left</translation>
    </message>
    <message>
        <source>Word Left	Ctrl+Left</source>
        <translation>왼쪽 단어	Ctrl+Left</translation>
    </message>
    <message>
        <source>Right	Right</source>
        <translation>오른쪽	Right</translation>
    </message>
    <message>
        <source>Word Right	Ctrl+Right</source>
        <translation>오른쪽 단어	Ctrl+Right</translation>
    </message>
    <message>
        <source>Page Up	Page Up</source>
        <translation>이전 페이지	Page Up</translation>
    </message>
    <message>
        <source>Page Down	Page Down</source>
        <translation>다음 페이지	Page Down</translation>
    </message>
    <message>
        <source>Line Head	Home</source>
        <translation>줄 처음	Home</translation>
    </message>
    <message>
        <source>Editor Head	Ctrl+Home</source>
        <translation>문서 처음	Ctrl+Home</translation>
    </message>
    <message>
        <source>Line End	End</source>
        <translation>줄 끝	End</translation>
    </message>
    <message>
        <source>Editor End	Ctrl+End</source>
        <translation>문서 끝	Ctrl+End</translation>
    </message>
    <message>
        <source>Increase Indent	Tab</source>
        <translation>들여쓰기	Tab</translation>
    </message>
    <message>
        <source>Decrease Indent	Shift+Tab</source>
        <translation>내어쓰기	Shift+Tab</translation>
    </message>
    <message>
        <source>Lower Case	Ctrl+U</source>
        <translation>소문자	Ctrl+U</translation>
    </message>
    <message>
        <source>Upper Case	Ctrl+Shift+U</source>
        <translation>대문자	Ctrl+Shift+U</translation>
    </message>
    <message>
        <source>Capitalize</source>
        <translation>첫 글자 대문자</translation>
    </message>
    <message>
        <source>Invert Case</source>
        <translation>대소문자 반전</translation>
    </message>
    <message>
        <source>Sentencize</source>
        <translation>문장형</translation>
    </message>
    <message>
        <source>Toggle Bookmark	Ctrl+F2</source>
        <translation>책갈피 설정/해제	Ctrl+F2</translation>
    </message>
    <message>
        <source>Next Bookmark	F2</source>
        <translation>다음 책갈피	F2</translation>
    </message>
    <message>
        <source>Previous Bookmark	Shift+F2</source>
        <translation>이전 책갈피	Shift+F2</translation>
    </message>
    <message>
        <source>Clear All Bookmarks	Ctrl+Shift+F2</source>
        <translation>모든 책갈피 지우기	Ctrl+Shift+F2</translation>
    </message>
    <message>
        <source>&amp;Undo	Ctrl+Z</source>
        <translation>실행 취소(&amp;U)	Ctrl+Z</translation>
    </message>
    <message>
        <source>&amp;Redo	Ctrl+Y</source>
        <translation>다시 실행(&amp;R)	Ctrl+Y</translation>
    </message>
    <message>
        <source>Clear Content</source>
        <translation>내용 지우기</translation>
    </message>
    <message>
        <source>Cu&amp;t	Ctrl+X</source>
        <translation>잘라내기(&amp;T)	Ctrl+X</translation>
    </message>
    <message>
        <source>&amp;Copy	Ctrl+C</source>
        <translation>복사(&amp;C)	Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste	Ctrl+V</source>
        <translation>붙여넣기(&amp;P)	Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Delete	Del</source>
        <translation>삭제(&amp;D)	Del</translation>
    </message>
    <message>
        <source>Select &amp;All	Ctrl+A</source>
        <translation>모두 선택(&amp;A)	Ctrl+A</translation>
    </message>
    <message>
        <source>Modification</source>
        <translation>수정</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>복사</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>모두 선택</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>다른 이름으로 저장...</translation>
    </message>
    <message>
        <source>Copy to Clipboard</source>
        <translation>클립보드로 복사</translation>
    </message>
    <message>
        <source>Copy as Selected Code	Ctrl+Shift+C</source>
        <translation>선택한 코드로 복사	Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>Visual Basic Code</source>
        <translation>Visual Basic 코드</translation>
    </message>
    <message>
        <source>Visual C/C++ Code</source>
        <translation>Visual C/C++ 코드</translation>
    </message>
    <message>
        <source>C/C++ Code</source>
        <translation>C/C++ 코드</translation>
    </message>
    <message>
        <source>C# Code</source>
        <translation>C# 코드</translation>
    </message>
    <message>
        <source>PowerBuilder Code</source>
        <translation>PowerBuilder 코드</translation>
    </message>
    <message>
        <source>Delphi Code</source>
        <translation>Delphi 코드</translation>
    </message>
    <message>
        <source>Java Code</source>
        <translation>Java 코드</translation>
    </message>
    <message>
        <source>Perl Code</source>
        <translation>Perl 코드</translation>
    </message>
    <message>
        <source>PHP Code</source>
        <translation>PHP 코드</translation>
    </message>
    <message>
        <source>Paste from Clipboard</source>
        <translation>클립보드에서 붙여넣기</translation>
    </message>
    <message>
        <source>Paste from Selected Code	Ctrl+Shift+V</source>
        <translation>선택한 코드에서 붙여넣기	Ctrl+Shift+V</translation>
    </message>
    <message>
        <source>Co&amp;mment	Ctrl+-</source>
        <translation>주석 처리(&amp;M)	Ctrl+-</translation>
    </message>
    <message>
        <source>U&amp;ncomment	Ctrl+Shift+-</source>
        <translation>주석 해제(&amp;N)	Ctrl+Shift+-</translation>
    </message>
    <message>
        <source>Format SQL	Ctrl+Shift+F</source>
        <translation>SQL 서식 지정	Ctrl+Shift+F</translation>
    </message>
</context>
</TS>
