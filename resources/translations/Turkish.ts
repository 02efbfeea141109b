<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr_TR">
<context>
    <name>Orvane::BarDialog</name>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>Orvane::OMessageBox</name>
    <message>
        <source>OK</source>
        <translation>Tamam</translation>
    </message>
</context>
</TS>
