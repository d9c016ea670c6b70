<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>QuillboxApp</name>
    <message>
        <source>&amp;File</source>
        <translation>파일(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>열기(&amp;O)...</translation>
    </message>
    <message>
        <source>SQL Files (*.sql);;All Files (*)</source>
        <translation>SQL 파일 (*.sql);;모든 파일 (*)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>저장(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>끝내기(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>인쇄(&amp;P)...</translation>
    </message>
    <message>
        <source>Quillbox</source>
        <translation>Quillbox</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>%1의 변경 내용을 저장하시겠습니까?</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>제목 없음</translation>
    </message>
    <message>
        <source>%1[*] - Quillbox</source>
        <translation>%1[*] - Quillbox</translation>
    </message>
</context>
</TS>
