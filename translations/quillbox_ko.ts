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
</context>
</TS>
