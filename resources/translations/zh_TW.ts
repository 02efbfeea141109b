<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW">
<context>
    <name>Orvane::BarDialog</name>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
</context>
<context>
    <name>Orvane::OMessageBox</name>
    <message>
        <source>OK</source>
        <translation>確定</translation>
    </message>
</context>
</TS>
