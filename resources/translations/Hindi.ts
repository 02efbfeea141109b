<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hi_IN">
<context>
    <name>Orvane::BarDialog</name>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
</context>
<context>
    <name>Orvane::OMessageBox</name>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
</context>
</TS>
