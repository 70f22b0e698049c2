<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AddStreamsDialog</name>
    <message numerus="yes">
        <source>Only the first %n line(s) are read; the others stay here.</source>
        <translation>
            <numerusform>Only the first line is read; the others stay here.</numerusform>
            <numerusform>Only the first %n lines are read; the others stay here.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ChannelPanels</name>
    <message numerus="yes">
        <source>Loading channels... %n so far</source>
        <translation>
            <numerusform>Loading channels... %n so far</numerusform>
            <numerusform>Loading channels... %n so far</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidget</name>
    <message numerus="yes">
        <source>Search for %1 returned %n results</source>
        <translation>
            <numerusform>Search for %1 returned %n results</numerusform>
            <numerusform>Search for %1 returned %n results</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Search for most popular returned %n results</source>
        <translation>
            <numerusform>Search for most popular returned %n results</numerusform>
            <numerusform>Search for most popular returned %n results</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ConnectionTest</name>
    <message numerus="yes">
        <source>%1 did not answer within %n second(s).</source>
        <translation>
            <numerusform>%1 did not answer within a second.</numerusform>
            <numerusform>%1 did not answer within %n seconds.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EffectsLibrary</name>
    <message numerus="yes">
        <source>There can be %n effect(s) at most.</source>
        <translation>
            <numerusform>There can be one effect at most.</numerusform>
            <numerusform>There can be %n effects at most.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLIndicatorBar</name>
    <message numerus="yes">
        <source>%n new chat message(s)</source>
        <translation>
            <numerusform>%n new chat message</numerusform>
            <numerusform>%n new chat messages</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new alert(s)</source>
        <translation>
            <numerusform>%n new alert</numerusform>
            <numerusform>%n new alerts</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLOverlay</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TestConsole</name>
    <message numerus="yes">
        <source>%n channel(s) tested</source>
        <translation>
            <numerusform>%n channel tested</numerusform>
            <numerusform>%n channels tested</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n failed</numerusform>
            <numerusform>%n failed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VideoInformationDialog</name>
    <message numerus="yes">
        <source>%1, %2 Hz, %n channel(s)</source>
        <translation>
            <numerusform>%1, %2 Hz, %n channel</numerusform>
            <numerusform>%1, %2 Hz, %n channels</numerusform>
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
