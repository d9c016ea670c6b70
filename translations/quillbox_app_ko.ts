<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>QuillboxApp</name>
    <message>
        <source>Quillbox - %1</source>
        <translation>Quillbox - %1</translation>
    </message>
</context>
</TS>
