<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="id_ID">
<context>
    <name>Orvane::BarDialog</name>
    <message>
        <source>Close</source>
        <translation>Tutup</translation>
    </message>
</context>
<context>
    <name>Orvane::OMessageBox</name>
    <message>
        <source>OK</source>
        <translation>Oke</translation>
    </message>
</context>
</TS>
