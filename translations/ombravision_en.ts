<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ChannelPanels</name>
    <message numerus="yes">
        <source>Loading channels... %n so far</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidget</name>
    <message numerus="yes">
        <source>Search for %1 returned %n results</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Search for most popular returned %n results</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ConnectionTest</name>
    <message numerus="yes">
        <source>%1 did not answer within %n second(s).</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EffectsLibrary</name>
    <message numerus="yes">
        <source>There can be %n effect(s) at most.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLIndicatorBar</name>
    <message numerus="yes">
        <source>%n new chat message(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new alert(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLOverlay</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TestConsole</name>
    <message numerus="yes">
        <source>%n channel(s) tested</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VideoInformationDialog</name>
    <message numerus="yes">
        <source>%1, %2 Hz, %n channel(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message numerus="yes">
        <source>Your account shows %n channel(s) at once.</source>
        <translation>
            <numerusform>Your account shows %n channel at once.</numerusform>
            <numerusform>Your account shows %n channels at once.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message numerus="yes">
        <source>%n more in the list of channels</source>
        <translation>
            <numerusform>%n more in the list of channels</numerusform>
            <numerusform>%n more in the list of channels</numerusform>
        </translation>
    </message>
</context>
</TS>
