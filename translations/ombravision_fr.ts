<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Ombravision</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ombravision %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sign of Ombravision</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Live internet television on your desktop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Built on %1. Each of them is free software under its own licence.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccountDialog</name>
    <message>
        <source>E-&amp;mail:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccountPage</name>
    <message>
        <source>Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign &amp;in ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in &amp;automatically at the start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name in chats:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These two are kept with the account: sign in for them to be there at the next start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Security</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Allow &amp;passwords to be sent where nothing keeps them secret</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning: whoever can listen on the way to the service reads your password then. Allow it only for a service on a network that is all yours.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signed in as %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nobody is signed in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign &amp;out</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AddStreamsDialog</name>
    <message>
        <source>Add Streams</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Addresses and files, one a line:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the lines are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose &amp;files ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looking for this file ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Files</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AlertPreview</name>
    <message>
        <source>Sample alert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Breaking news
This is how an alert looks.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AlertsPage</name>
    <message>
        <source>Tell me of</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Breaking news on my channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is &amp;talked about most</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Messages of the service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Lines of the chat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bells in the list of channels say whose breaking news you are told of.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In a &amp;window of its own</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In the li&amp;ve panel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Each for:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Opacity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Show one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As notices of the des&amp;ktop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>This system does not support opengl. Exiting</source>
        <translation>Ce système ne prend pas en charge OpenGL. Fermeture.</translation>
    </message>
    <message>
        <source>This system does not support a system tray.</source>
        <translation>Ce système n&apos;a pas de zone de notification.</translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
</context>
<context>
    <name>BufferLatteVisualiser</name>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BufferWindow</name>
    <message>
        <source>Stream Buffer</source>
        <translation>Tampon du flux</translation>
    </message>
    <message>
        <source>No open channel has a stream buffer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer of %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Channel</name>
    <message>
        <source>
Click here to reconnect</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelEvents</name>
    <message>
        <source>The channel did not play in time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelFeed</name>
    <message>
        <source>
Retrying...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelListWidget</name>
    <message>
        <source>Channels</source>
        <translation>Chaînes</translation>
    </message>
    <message>
        <source>Filter by title or language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kind of channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Any</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Premium Partner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Free Partner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Viewer Added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show favourites only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No channel fits your filters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show All Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in to see your channels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading channels...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no channels on your list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel has gone from the list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>For sale: click to purchase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This channel cannot be watched now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Breaking News Alerts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete from My Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset Streams</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelListWidgetModel</name>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>favourite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelPanels</name>
    <message>
        <source>Signing in...</source>
        <translation>Connexion en cours...</translation>
    </message>
    <message numerus="yes">
        <source>Loading channels... %n so far</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in to change the list of your channels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel could not be deleted: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelRowStates</name>
    <message>
        <source>Playing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previewing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelSearchCombo</name>
    <message>
        <source>Enter your channel search</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidget</name>
    <message>
        <source>Search</source>
        <translation>Recherche</translation>
    </message>
    <message>
        <source>Most Added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show More</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channels that were found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search on the web site</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in to search for channels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find the channels that other viewers have added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel has no address that can be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>news</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>music</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>us</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>uk</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching for %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching for most popular...</source>
        <translation type="unfinished"></translation>
    </message>
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
    <message>
        <source>No channel was found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The search failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The most popular channels could not be loaded: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel could not be added: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel could not be created: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel could not be removed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adding %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was successfully added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel was removed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service has not removed it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save to My Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Channel...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetItemDelegate</name>
    <message>
        <source>Saved</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetModel</name>
    <message>
        <source>Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rating</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChannelStream</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording stopped: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, live, through a buffer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a file on this computer</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChatColours</name>
    <message>
        <source>Room Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ignored Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Admin Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bot Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timestamp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Link</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChatPage</name>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Size of the text:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> pt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample of a chat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Good evening!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skin</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ColourButton</name>
    <message>
        <source>%1: colour %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConnectionTest</name>
    <message>
        <source>This computer finds no way to %1. Is it connected to a network?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This computer finds no way to the proxy %1. Is its name right?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Something on the way answers in place of %1: it can&apos;t be reached from there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The network answers with a page of %1. Perhaps it wants you to sign in there first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 answered within %2 ms.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 accepts no connection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no machine called %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 did not answer within %n second(s).</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 could not prove who it is: its certificate is not valid.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The proxy %1 accepts no connection. Is the port right?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no proxy called %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The proxy %1 did not answer in time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The proxy %1 wants a user name and a password, or does not accept these.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be reached: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeleteChannelDialog</name>
    <message>
        <source>Delete Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel &lt;b&gt;%1&lt;/b&gt; from My Channels?&lt;br&gt;&lt;br&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;b&gt;Note:&lt;/b&gt; To restore a partner channel that you have deleted &lt;a href=&quot;manage&quot;&gt;click here&lt;/a&gt;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel %1 from My Channels?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EffectEditor</name>
    <message>
        <source>Line numbers</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EffectNames</name>
    <message>
        <source>An effect needs a name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This name is too long.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EffectTrial</name>
    <message>
        <source>The graphics driver does not compile this effect.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One picture would take about %1 ms with this effect. That is too long to play: it was switched off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A picture is never finished with this effect. It was switched off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The graphics driver fails with this effect. It was switched off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This effect could not be tried, so it is not shown.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EffectsDialog</name>
    <message>
        <source>Effects</source>
        <translation>Effets</translation>
    </message>
    <message>
        <source>&amp;Show effects on the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Effects and their source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The source as it was before you changed it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Effects, in the order in which they are applied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Earlier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source of the effect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comes with the program. Duplicate it to make your own of it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What you type is kept, and shown while the effect is on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New effect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name of the effect:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the effect &quot;%1&quot;? It can&apos;t be brought back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EffectsLibrary</name>
    <message>
        <source>There is an effect called &quot;%1&quot; already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The effects are still being read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>There can be %n effect(s) at most.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>This effect is too long.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This effect can&apos;t be renamed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This effect can&apos;t be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This effect can&apos;t be changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EffectsStore</name>
    <message>
        <source>There are too many effects in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file %1 is not named as effects are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The effect in %1 can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The order of the effects in %1 can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program ended while this effect was being tried. It was switched off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program ended while the effect &quot;%1&quot; was being tried. It was switched off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be removed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileChannels</name>
    <message>
        <source>Media files (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;All files (*)</source>
        <translation>Fichiers multimédias (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Open Video File</source>
        <translation>Ouvrir un fichier vidéo</translation>
    </message>
    <message>
        <source>Open Video Files</source>
        <translation>Ouvrir des fichiers vidéo</translation>
    </message>
    <message>
        <source>Add Video Files</source>
        <translation>Ajouter des fichiers vidéo</translation>
    </message>
</context>
<context>
    <name>GLCarouselBar</name>
    <message>
        <source>Channel carousel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel to the left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play this channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show this channel beside the others</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel to the right</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GLChannelBar</name>
    <message>
        <source>Playback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel logo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous channel (Page Up)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next channel (Page Down)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Take a screenshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel carousel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show only this channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show another channel beside this one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave full screen (Escape)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full screen (Ctrl+F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound on (Ctrl+M)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mute (Ctrl+M)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GLIndicatorBar</name>
    <message>
        <source>Messages</source>
        <translation type="unfinished"></translation>
    </message>
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
    <name>GLMovie</name>
    <message>
        <source>Could not locate a video decoder. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not open video codec. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No audio device present.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not locate an audio decoder. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not open audio codec. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No video or audio streams found. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The audio format is not supported. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not open sound device.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed creating movie texture. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not enough memory to play. Cannot play</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GLOverlay</name>
    <message>
        <source>Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Viewpoint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Muted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in to watch the channels of your account</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (Ctrl and click: close)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (click: sound; Ctrl and click: close)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GLProgressIndicator</name>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer %1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Live</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GLTitleBar</name>
    <message>
        <source>What plays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide the channels beside the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the channels beside the picture</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GLVolumeControl</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>GLWidget</name>
    <message>
        <source>Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What plays; Tab goes to its controls</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no channels yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading ... %1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The page could not be loaded</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;First, play:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what played last</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the first channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Start when I sign in to the desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where the desktop keeps a list of its own of what starts with it, add &quot;ombravision -startup&quot; there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Always on top of other windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the &amp;menu bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the &amp;channel bar while the pointer is over the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;tips over the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Directory of screenshots</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;hoose ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save them &amp;in:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HttpFileDataSource</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is too long to be kept in memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HttpFileDownloader</name>
    <message>
        <source>The address cannot be downloaded from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The connection failed (%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server answered %1 %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server leads to another place that cannot be used.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InviteDialog</name>
    <message>
        <source>Invite a Friend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Your letter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hello,

I watch live television with Ombravision, and thought you might like it, too. You can get it here:

%1

See you there!
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Write a mail</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
</context>
<context>
    <name>KeysDialog</name>
    <message>
        <source>Escape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave full screen, close a dialog</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 to 9</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose one of the open channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page up, Page down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous and next channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl with a click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a channel beside the others, or close it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full screen on and off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In &quot;Open Video Stream&quot;: open it beside what plays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alt with a letter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What has that letter underlined</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys and what they do</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What it does</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Sign In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign &amp;In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keep me signed in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>I have no account yet: &amp;create one ...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoginManager</name>
    <message>
        <source>The service does not accept this e-mail address and password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You must install the critical update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your password could not be stored. You will be asked for it at the next start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signing in ...</source>
        <translation>Connexion en cours ...</translation>
    </message>
    <message>
        <source>Creating the account ...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MenuActions</name>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Video Post Processing</source>
        <translation>Post-traitement vidéo</translation>
    </message>
    <message>
        <source>Edit Video Post Processing</source>
        <translation>Modifier le post-traitement vidéo</translation>
    </message>
    <message>
        <source>0.25x</source>
        <translation>0,25x</translation>
    </message>
    <message>
        <source>0.5x</source>
        <translation>0,5x</translation>
    </message>
    <message>
        <source>0.75x</source>
        <translation>0,75x</translation>
    </message>
    <message>
        <source>1x</source>
        <translation>1x</translation>
    </message>
    <message>
        <source>1.25x</source>
        <translation>1,25x</translation>
    </message>
    <message>
        <source>1.5x</source>
        <translation>1,5x</translation>
    </message>
    <message>
        <source>1.75x</source>
        <translation>1,75x</translation>
    </message>
    <message>
        <source>2x</source>
        <translation>2x</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Personnalisée</translation>
    </message>
    <message>
        <source>Half Size</source>
        <translation>Demi-taille</translation>
    </message>
    <message>
        <source>Normal Size</source>
        <translation>Taille réelle</translation>
    </message>
    <message>
        <source>Double Size</source>
        <translation>Double taille</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Étirer</translation>
    </message>
    <message>
        <source>Touch Inside</source>
        <translation>Ajuster à l&apos;intérieur</translation>
    </message>
    <message>
        <source>Touch Outside</source>
        <translation>Remplir</translation>
    </message>
    <message>
        <source>Channel Carousel</source>
        <translation>Carrousel des chaînes</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>Test Channels</source>
        <translation>Tester les chaînes</translation>
    </message>
    <message>
        <source>Run at Startup</source>
        <translation>Lancer au démarrage</translation>
    </message>
    <message>
        <source>Increase Volume</source>
        <translation>Augmenter le volume</translation>
    </message>
    <message>
        <source>Decrease Volume</source>
        <translation>Baisser le volume</translation>
    </message>
    <message>
        <source>Reset Speed</source>
        <translation>Vitesse normale</translation>
    </message>
    <message>
        <source>Increase Speed</source>
        <translation>Accélérer</translation>
    </message>
    <message>
        <source>Decrease Speed</source>
        <translation>Ralentir</translation>
    </message>
    <message>
        <source>Seek Forwards</source>
        <translation>Avancer</translation>
    </message>
    <message>
        <source>Seek backwards</source>
        <translation>Reculer</translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation>Barre de menus</translation>
    </message>
    <message>
        <source>Tabs</source>
        <translation>Onglets</translation>
    </message>
    <message>
        <source>Show Chat</source>
        <translation>Afficher le chat</translation>
    </message>
    <message>
        <source>Skin Mode</source>
        <translation>Habillage</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Toujours au premier plan</translation>
    </message>
    <message>
        <source>&amp;Open Video File</source>
        <translation>&amp;Ouvrir un fichier vidéo</translation>
    </message>
    <message>
        <source>&amp;Open Video Files</source>
        <translation>Ouvrir des fichiers &amp;vidéo</translation>
    </message>
    <message>
        <source>&amp;Add Video Files</source>
        <translation>&amp;Ajouter des fichiers vidéo</translation>
    </message>
    <message>
        <source>&amp;Open Video Stream</source>
        <translation>Ouvrir un &amp;flux vidéo</translation>
    </message>
    <message>
        <source>&amp;Open Latte Stream</source>
        <translation>Ouvrir un flux &amp;Latte</translation>
    </message>
    <message>
        <source>&amp;Add Latte Stream</source>
        <translation>Ajouter un flux La&amp;tte</translation>
    </message>
    <message>
        <source>&amp;Add/Remove channels</source>
        <translation>&amp;Ajouter/supprimer des chaînes</translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation>&amp;Réduire</translation>
    </message>
    <message>
        <source>&amp;Sign In</source>
        <translation>&amp;Se connecter</translation>
    </message>
    <message>
        <source>&amp;Sign Out</source>
        <translation>Se &amp;déconnecter</translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>&amp;Créer un compte</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;About Ombravision</source>
        <translation>À &amp;propos d&apos;Ombravision</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Tutorial</source>
        <translation>&amp;Tutoriel</translation>
    </message>
    <message>
        <source>&amp;Support</source>
        <translation>&amp;Assistance</translation>
    </message>
    <message>
        <source>&amp;Feedback</source>
        <translation>&amp;Votre avis</translation>
    </message>
    <message>
        <source>&amp;Buy Ombravision Pro</source>
        <translation>&amp;Acheter Ombravision Pro</translation>
    </message>
    <message>
        <source>&amp;Invite Friend</source>
        <translation>&amp;Inviter un ami</translation>
    </message>
    <message>
        <source>Send Support Information</source>
        <translation>Envoyer des informations d&apos;assistance</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>&amp;Show Window</source>
        <translation>A&amp;fficher la fenêtre</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Fermer la fenêtre</translation>
    </message>
</context>
<context>
    <name>MyChannels</name>
    <message>
        <source>The service has not removed it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NetworkErrors</name>
    <message>
        <source>No error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There was a general error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End of stream encountered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not resolve resource</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stream unavailable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resource not available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A remote server closed the connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Authentication required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Proxy authentication required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The operation unexpectedly succeeded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The operation was unexpectedly redirected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There was an unexpected client error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There was an unexpected server error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server sends nothing that can be played</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NetworkPage</name>
    <message>
        <source>Proxy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>as the system says</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HTTP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HTTP, for web pages only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SOCKS 5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pass&amp;word:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Test the connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The test was ended.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End the &amp;test</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking the service ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cache of channels and logos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Limit:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> MiB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Empty the cache</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removing ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cache is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some files could not be removed; %1 are left.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NewChannelDialog</name>
    <message>
        <source>New Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Television</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is no address of the network: it begins with mms://, rtsp://, http:// or the like.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other viewers can find the channel, too.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OpenStreamDialog</name>
    <message>
        <source>Open Video Stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Forget all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forget the addresses that were opened before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;beside</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beside what plays (Ctrl+Return)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the address is</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PanelNotice</name>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This page as in a new installation</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesPage</name>
    <message>
        <source>Result</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>streams of this kind cannot be recorded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk is too slow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be made</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RestfulChannelDescriptionProvider</name>
    <message>
        <source>Error parsing channels
Retrying...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SignupDialog</name>
    <message>
        <source>Create Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>&amp;Créer un compte</translation>
    </message>
    <message>
        <source>Password &amp;again:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Send me news about programmes and channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your e-mail address is your user name. It gets letters about your account and no others, unless you allow them here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not an e-mail address yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password needs one more character.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password needs %1 more characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The two passwords differ.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SlowDriverWarning</name>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Ombravision has detected that your system does not have a proper opengl graphics driver installed.&lt;br&gt;This will cause Ombravision to run slowly especially in fullscreen mode.&lt;br&gt;Please install the driver of the maker of your graphics card, or the package that your distribution has for it, and start Ombravision again.</source>
        <translation>Ombravision a détecté qu&apos;aucun pilote graphique OpenGL adapté n&apos;est installé sur votre système.&lt;br&gt;Ombravision sera donc lent, surtout en plein écran.&lt;br&gt;Veuillez installer le pilote du fabricant de votre carte graphique, ou le paquet de votre distribution, puis relancer Ombravision.</translation>
    </message>
</context>
<context>
    <name>SoapAllowedChannels</name>
    <message>
        <source>The answer of the service has no list of channels.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoapReply</name>
    <message>
        <source>it is no answer to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The answer of the service cannot be read: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has a document type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has too many parts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service reports a fault and does not say which.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoapRequest</name>
    <message>
        <source>The answer of the service is empty.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoapService</name>
    <message>
        <source>The address of the service is not a web address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service at %1 is not reached over a secure connection (https). What you entered could be read on the way, so it was not sent.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoapSignup</name>
    <message>
        <source>Error parsing response</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service made no account and does not say why.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoapTransport</name>
    <message>
        <source>The service did not answer in time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What you entered has a character that cannot be sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program is closing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The answer of the service is too long.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service at %1 cannot prove who it is: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service answered with the status %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SoundPage</name>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sound goes to:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Play a test tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Volume:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Mute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (system)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (not there now)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Playing ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The tone was played. If you heard nothing, look at the volume of the device itself.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The tone was played where the system sends sound.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device could not be opened. Another program may be using it alone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device was opened but played nothing.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Splitter</name>
    <message>
        <source>Picture and tabs</source>
        <translation>Image et onglets</translation>
    </message>
</context>
<context>
    <name>SupportDialog</name>
    <message>
        <source>Support Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is what helps the &amp;support to find out what is wrong. It has no passwords and no e-mail addresses. Read it, then give it to whom you like: nothing is sent from here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Result</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;as ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gathering ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Support Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabWidget</name>
    <message>
        <source>Tabs</source>
        <translation>Onglets</translation>
    </message>
</context>
<context>
    <name>TestConsole</name>
    <message>
        <source>Test Console</source>
        <translation>Console de test</translation>
    </message>
    <message>
        <source>&amp;Save as ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Go from channel to channel and see whether each plays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Time for each:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Play a sound when one fails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What was found out</source>
        <translation type="unfinished"></translation>
    </message>
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
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Test Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TestEventModel</name>
    <message>
        <source>It plays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Minimise</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Maximise</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
</context>
<context>
    <name>TutorialDialog</name>
    <message>
        <source>Tutorial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Over the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the pointer over the picture, and the controls appear: volume, mute, previous and next channel, full screen. They go by themselves once the pointer rests.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Several at once</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold Ctrl and click another channel to watch it beside the first. A click on a picture gives it the sound, and Ctrl with a click closes it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep and find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record what plays, keep a picture of it, or turn the carousel to see all channels at once. All of it is in the menus, with its keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make it yours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in to have your channels and settings wherever you are. The preferences change at once, and Help has a table of all keys. You find this tutorial there, too.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ombravision plays live television from all over the world. The tab &quot;Channels&quot; has your channels, and &quot;Search&quot; finds more. Choose one, and it plays.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You must install the critical update to version %1 before you can sign in again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1 of Ombravision is available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It can be downloaded from %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service names no safe address to download it from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MD5 sum of the file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is new</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VideoInformationDialog</name>
    <message>
        <source>Video Information</source>
        <translation>Informations sur la vidéo</translation>
    </message>
    <message>
        <source>Cha&amp;nnel:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transport:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packets lost:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bit rate:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offset of the sound:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2 x %3, %4 per second</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1, %2 Hz, %n channel(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 ms before the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 ms after the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No open channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 shown, %2 dropped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of the picture, %2 of the sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VideoPage</name>
    <message>
        <source>Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Size of the picture:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>as large as fits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fills the window, cut off at the edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stretched to the window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>half its own size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its own size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>twice its own size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smooth the &amp;edges of what is drawn (antialiasing)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graphics card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Convert colours on the graphics card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;By means of:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the best that the driver offers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a shader</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a fragment program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the processor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Pictures reach the screen by:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what is fastest here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OpenGL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shared memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes other than the size open the channels that play again, which takes a moment.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>De&amp;interlace pictures that are made of two fields</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source>Ombravision is still there</source>
        <translation>Ombravision est toujours là</translation>
    </message>
    <message>
        <source>Click on its icon to go on watching. Exit in its menu ends the program.</source>
        <translation>Cliquez sur son icône pour continuer à regarder. « Quitter » dans son menu ferme le programme.</translation>
    </message>
    <message>
        <source>The screenshot could not be saved in %1</source>
        <translation>La capture n&apos;a pas pu être enregistrée dans %1</translation>
    </message>
    <message>
        <source>Screenshot saved as %1</source>
        <translation>Capture enregistrée sous %1</translation>
    </message>
    <message>
        <source>You are signed in as %1.</source>
        <translation>Vous êtes connecté en tant que %1.</translation>
    </message>
    <message>
        <source>Signing in ...</source>
        <translation>Connexion en cours ...</translation>
    </message>
    <message numerus="yes">
        <source>Your account shows %n channel(s) at once.</source>
        <translation>
            <numerusform>Votre compte affiche %n chaîne à la fois.</numerusform>
            <numerusform>Votre compte affiche %n chaînes à la fois.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (muted)</source>
        <translation>%1 (muet)</translation>
    </message>
    <message>
        <source>%1 (volume %2 %)</source>
        <translation>%1 (volume %2 %)</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Chaînes</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Recherche</translation>
    </message>
</context>
<context>
    <name>WindowDialogs</name>
    <message>
        <source>Test Console</source>
        <translation>Console de test</translation>
    </message>
    <message>
        <source>Video Information</source>
        <translation>Informations sur la vidéo</translation>
    </message>
    <message>
        <source>Stream Buffer</source>
        <translation>Tampon du flux</translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>Take Screenshot</source>
        <translation>Faire une capture d&apos;écran</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Channels</source>
        <translation>&amp;Chaînes</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Options</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>Draw Mode</source>
        <translation>Mode d&apos;affichage</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspective</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effets</translation>
    </message>
    <message numerus="yes">
        <source>%n more in the list of channels</source>
        <translation>
            <numerusform>%n autre dans la liste des chaînes</numerusform>
            <numerusform>%n autres dans la liste des chaînes</numerusform>
        </translation>
    </message>
    <message>
        <source>No channels</source>
        <translation>Aucune chaîne</translation>
    </message>
</context>
<context>
    <name>WindowZoom</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
</TS>
