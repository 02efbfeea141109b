<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>Orvane::BarDialog</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Orvane::OMessageBox</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
</TS>
