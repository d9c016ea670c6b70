<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>QuillboxApp</name>
    <message>
        <source>Quillbox - %1</source>
        <translation>Quillbox - %1</translation>
    </message>
</context>
</TS>
