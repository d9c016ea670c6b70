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
</context>
</TS>
