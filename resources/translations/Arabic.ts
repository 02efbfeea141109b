<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar">
<context>
    <name>Orvane::OMessageBox</name>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
</context>
</TS>
