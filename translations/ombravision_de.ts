<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Ombravision</source>
        <translation>Über Ombravision</translation>
    </message>
    <message>
        <source>Ombravision %1</source>
        <translation>Ombravision %1</translation>
    </message>
    <message>
        <source>The sign of Ombravision</source>
        <translation>Das Zeichen von Ombravision</translation>
    </message>
    <message>
        <source>Live internet television on your desktop.</source>
        <translation>Live-Fernsehen aus dem Internet auf Ihrem Desktop.</translation>
    </message>
    <message>
        <source>Built on %1. Each of them is free software under its own licence.</source>
        <translation>Aufgebaut auf %1. Jedes davon ist freie Software unter eigener Lizenz.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
</context>
<context>
    <name>AccountDialog</name>
    <message>
        <source>E-&amp;mail:</source>
        <translation>E-&amp;Mail:</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>&amp;Passwort:</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>AccountPage</name>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Sign in &amp;automatically at the start</source>
        <translation>Beim Start a&amp;utomatisch anmelden</translation>
    </message>
    <message>
        <source>&amp;Name in chats:</source>
        <translation>&amp;Name in Chats:</translation>
    </message>
    <message>
        <source>Security</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>Allow &amp;passwords to be sent where nothing keeps them secret</source>
        <translation>Senden von &amp;Passwörtern auch ohne Verschlüsselung erlauben</translation>
    </message>
    <message>
        <source>Warning: whoever can listen on the way to the service reads your password then. Allow it only for a service on a network that is all yours.</source>
        <translation>Warnung: Wer auf dem Weg zum Dienst mithören kann, liest dann Ihr Passwort. Erlauben Sie es nur für einen Dienst in einem Netz, das ganz Ihnen gehört.</translation>
    </message>
    <message>
        <source>Signed in as %1.</source>
        <translation>Angemeldet als %1.</translation>
    </message>
    <message>
        <source>Nobody is signed in.</source>
        <translation>Niemand ist angemeldet.</translation>
    </message>
    <message>
        <source>Sign &amp;out</source>
        <translation>&amp;Abmelden</translation>
    </message>
    <message>
        <source>You will be asked for your password once more.</source>
        <translation>Sie werden noch einmal nach Ihrem Passwort gefragt.</translation>
    </message>
    <message>
        <source>Sign &amp;in...</source>
        <translation>&amp;Anmelden...</translation>
    </message>
</context>
<context>
    <name>AddStreamsDialog</name>
    <message>
        <source>Add Streams</source>
        <translation>Streams hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Addresses and files, one a line:</source>
        <translation>&amp;Adressen und Dateien, eine je Zeile:</translation>
    </message>
    <message>
        <source>What the lines are</source>
        <translation>Was die Zeilen sind</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Choose Files</source>
        <translation>Dateien wählen</translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n line(s) are read; the others stay here.</source>
        <translation>
            <numerusform>Nur die erste Zeile wird gelesen; die anderen bleiben hier.</numerusform>
            <numerusform>Nur die ersten %n Zeilen werden gelesen; die anderen bleiben hier.</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose &amp;files...</source>
        <translation>&amp;Dateien wählen...</translation>
    </message>
    <message>
        <source>Looking for this file...</source>
        <translation>Diese Datei wird gesucht...</translation>
    </message>
</context>
<context>
    <name>AddressCheck</name>
    <message>
        <source>This is too long for an address.</source>
        <translation>Das ist zu lang für eine Adresse.</translation>
    </message>
    <message>
        <source>A file on this computer.</source>
        <translation>Eine Datei auf diesem Computer.</translation>
    </message>
    <message>
        <source>An address begins with a scheme, such as http:// or rtsp://.</source>
        <translation>Eine Adresse beginnt mit einem Schema wie http:// oder rtsp://.</translation>
    </message>
    <message>
        <source>Nothing is known about addresses that begin with %1://.</source>
        <translation>Adressen, die mit %1:// beginnen, sind unbekannt.</translation>
    </message>
    <message>
        <source>There is something in this address that does not belong there.</source>
        <translation>In dieser Adresse steht etwas, das nicht hineingehört.</translation>
    </message>
    <message>
        <source>The name of the computer is missing after %1://.</source>
        <translation>Nach %1:// fehlt der Name des Rechners.</translation>
    </message>
    <message>
        <source>A stream of %1.</source>
        <translation>Ein Stream von %1.</translation>
    </message>
</context>
<context>
    <name>AlertPreview</name>
    <message>
        <source>Sample alert</source>
        <translation>Beispielmeldung</translation>
    </message>
    <message>
        <source>Breaking news
This is how an alert looks.</source>
        <translation>Eilmeldung
So sieht eine Meldung aus.</translation>
    </message>
</context>
<context>
    <name>AlertsPage</name>
    <message>
        <source>Tell me of</source>
        <translation>Anlässe</translation>
    </message>
    <message>
        <source>&amp;Breaking news on my channels</source>
        <translation>&amp;Eilmeldungen meiner Sender</translation>
    </message>
    <message>
        <source>&amp;New channels</source>
        <translation>&amp;Neue Sender</translation>
    </message>
    <message>
        <source>What is &amp;talked about most</source>
        <translation>&amp;Meistdiskutiertes</translation>
    </message>
    <message>
        <source>&amp;Messages of the service</source>
        <translation>Nach&amp;richten des Dienstes</translation>
    </message>
    <message>
        <source>&amp;Lines of the chat</source>
        <translation>&amp;Chatzeilen</translation>
    </message>
    <message>
        <source>The bells in the list of channels say whose breaking news you are told of.</source>
        <translation>Die Glocken in der Senderliste zeigen, wessen Eilmeldungen Sie erhalten.</translation>
    </message>
    <message>
        <source>How</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>In a &amp;window of its own</source>
        <translation>In einem eigenen &amp;Fenster</translation>
    </message>
    <message>
        <source>In the li&amp;ve panel</source>
        <translation>Im &amp;Live-Bereich</translation>
    </message>
    <message>
        <source>&amp;Each for:</source>
        <translation>&amp;Jeweils für:</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Opacity:</source>
        <translation>Dec&amp;kkraft:</translation>
    </message>
    <message>
        <source>&amp;Show one</source>
        <translation>&amp;Beispiel zeigen</translation>
    </message>
    <message>
        <source>As notices of the des&amp;ktop</source>
        <translation>Als Desk&amp;top-Benachrichtigung</translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>This system does not support opengl. Exiting</source>
        <translation>Dieses System unterstützt kein OpenGL. Das Programm wird beendet.</translation>
    </message>
    <message>
        <source>This system does not support a system tray.</source>
        <translation>Dieses System hat keinen Infobereich in der Leiste.</translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
</context>
<context>
    <name>AudioOutputChoice</name>
    <message>
        <source>The sound device could not be opened: there is no sound for now.</source>
        <translation>Das Tongerät konnte nicht geöffnet werden: Vorerst gibt es keinen Ton.</translation>
    </message>
    <message>
        <source>%1 could not be opened. Sound goes where the system sends it.</source>
        <translation>%1 konnte nicht geöffnet werden. Der Ton geht dahin, wohin das System ihn schickt.</translation>
    </message>
</context>
<context>
    <name>BufferLatteVisualiser</name>
    <message>
        <source>%1%</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>BufferWindow</name>
    <message>
        <source>Stream Buffer</source>
        <translation>Streampuffer</translation>
    </message>
    <message>
        <source>No open channel has a stream buffer.</source>
        <translation>Kein offener Sender hat einen Streampuffer.</translation>
    </message>
    <message>
        <source>Buffer of %1</source>
        <translation>Puffer von %1</translation>
    </message>
</context>
<context>
    <name>Channel</name>
    <message>
        <source>
Click here to reconnect</source>
        <translation>
Hier klicken, um neu zu verbinden</translation>
    </message>
</context>
<context>
    <name>ChannelEvents</name>
    <message>
        <source>The channel did not play in time.</source>
        <translation>Der Sender lief nicht rechtzeitig an.</translation>
    </message>
</context>
<context>
    <name>ChannelFeed</name>
    <message>
        <source>
Retrying...</source>
        <translation>
Neuer Versuch...</translation>
    </message>
    <message>
        <source>Couldn&apos;t open channel file.</source>
        <translation>Die Senderdatei konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Error parsing channel file.</source>
        <translation>Die Senderdatei ist fehlerhaft.</translation>
    </message>
</context>
<context>
    <name>ChannelListFilters</name>
    <message>
        <source>Show favourites only</source>
        <translation>Nur Favoriten anzeigen</translation>
    </message>
    <message>
        <source>Refresh the list</source>
        <translation>Liste aktualisieren</translation>
    </message>
    <message>
        <source>Filter by title or language</source>
        <translation>Nach Titel oder Sprache filtern</translation>
    </message>
    <message>
        <source>Kind of channels</source>
        <translation>Art der Sender</translation>
    </message>
    <message>
        <source>Any</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Premium Partner</source>
        <translation>Premium-Partner</translation>
    </message>
    <message>
        <source>Free Partner</source>
        <translation>Freie Partner</translation>
    </message>
    <message>
        <source>Viewer Added</source>
        <translation>Von Zuschauern</translation>
    </message>
</context>
<context>
    <name>ChannelListWidget</name>
    <message>
        <source>Channels</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>No channel fits your filters.</source>
        <translation>Kein Sender passt zu Ihren Filtern.</translation>
    </message>
    <message>
        <source>Show All Channels</source>
        <translation>Alle Sender anzeigen</translation>
    </message>
    <message>
        <source>Sign in to see your channels.</source>
        <translation>Melden Sie sich an, um Ihre Sender zu sehen.</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Loading channels...</source>
        <translation>Sender werden geladen...</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>There are no channels on your list.</source>
        <translation>In Ihrer Liste sind keine Sender.</translation>
    </message>
    <message>
        <source>The channel has gone from the list.</source>
        <translation>Der Sender ist nicht mehr in der Liste.</translation>
    </message>
    <message>
        <source>For sale: click to purchase</source>
        <translation>Kostenpflichtig: zum Kaufen klicken</translation>
    </message>
    <message>
        <source>This channel cannot be watched now.</source>
        <translation>Dieser Sender kann derzeit nicht gesehen werden.</translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation>Kaufen</translation>
    </message>
    <message>
        <source>Breaking News Alerts</source>
        <translation>Eilmeldungen</translation>
    </message>
    <message>
        <source>Delete from My Channels</source>
        <translation>Aus „Meine Sender“ löschen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation>In Mehrfachansicht öffnen</translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation>Aus Mehrfachansicht entfernen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Add Stream</source>
        <translation>Stream hinzufügen</translation>
    </message>
    <message>
        <source>Remove Stream</source>
        <translation>Stream entfernen</translation>
    </message>
    <message>
        <source>Reset Streams</source>
        <translation>Streams zurücksetzen</translation>
    </message>
    <message>
        <source>This address has a password in it: it is not kept as a favourite.</source>
        <translation>Diese Adresse enthält ein Passwort: Sie wird nicht als Favorit gespeichert.</translation>
    </message>
    <message>
        <source>Favourite</source>
        <translation>Favorit</translation>
    </message>
</context>
<context>
    <name>ChannelListWidgetModel</name>
    <message>
        <source>On</source>
        <translation>An</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>favourite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Sendername</translation>
    </message>
</context>
<context>
    <name>ChannelPanels</name>
    <message>
        <source>Signing in...</source>
        <translation>Anmeldung läuft...</translation>
    </message>
    <message numerus="yes">
        <source>Loading channels... %n so far</source>
        <translation>
            <numerusform>Sender werden geladen... bisher %n</numerusform>
            <numerusform>Sender werden geladen... bisher %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Die Seite konnte nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>The list could not be refreshed: %1</source>
        <translation>Die Liste konnte nicht aktualisiert werden: %1</translation>
    </message>
    <message>
        <source>Deleting %1...</source>
        <translation>%1 wird gelöscht...</translation>
    </message>
    <message>
        <source>Sign in to change the list of your channels.</source>
        <translation>Melden Sie sich an, um die Liste Ihrer Sender zu ändern.</translation>
    </message>
    <message>
        <source>%1 was deleted.</source>
        <translation>%1 wurde gelöscht.</translation>
    </message>
    <message>
        <source>The channel could not be deleted: %1</source>
        <translation>Der Sender konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>Sign in to add a channel.</source>
        <translation>Melden Sie sich an, um einen Sender hinzuzufügen.</translation>
    </message>
    <message>
        <source>Adding the channel...</source>
        <translation>Der Sender wird hinzugefügt...</translation>
    </message>
</context>
<context>
    <name>ChannelRowStates</name>
    <message>
        <source>Playing</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Previewing</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>Lädt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>ChannelSearchCombo</name>
    <message>
        <source>Enter your channel search</source>
        <translation>Suchbegriff für Sender eingeben</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidget</name>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Most Added</source>
        <translation>Beliebteste</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mehr anzeigen</translation>
    </message>
    <message>
        <source>Channels that were found</source>
        <translation>Gefundene Sender</translation>
    </message>
    <message>
        <source>Search on the web site</source>
        <translation>Auf der Website suchen</translation>
    </message>
    <message>
        <source>Sign in to search for channels.</source>
        <translation>Melden Sie sich an, um nach Sendern zu suchen.</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Find the channels that other viewers have added.</source>
        <translation>Finden Sie Sender, die andere Zuschauer hinzugefügt haben.</translation>
    </message>
    <message>
        <source>The channel has no address that can be opened.</source>
        <translation>Der Sender hat keine Adresse, die geöffnet werden kann.</translation>
    </message>
    <message>
        <source>news</source>
        <translation>nachrichten</translation>
    </message>
    <message>
        <source>sport</source>
        <translation>sport</translation>
    </message>
    <message>
        <source>music</source>
        <translation>musik</translation>
    </message>
    <message>
        <source>us</source>
        <translation>usa</translation>
    </message>
    <message>
        <source>uk</source>
        <translation>uk</translation>
    </message>
    <message>
        <source>Searching for %1...</source>
        <translation>Suche nach %1...</translation>
    </message>
    <message>
        <source>Searching for most popular...</source>
        <translation>Suche nach den beliebtesten Sendern...</translation>
    </message>
    <message numerus="yes">
        <source>Search for %1 returned %n results</source>
        <translation>
            <numerusform>Suche nach %1 ergab %n Treffer</numerusform>
            <numerusform>Suche nach %1 ergab %n Treffer</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Search for most popular returned %n results</source>
        <translation>
            <numerusform>Suche nach den beliebtesten Sendern ergab %n Treffer</numerusform>
            <numerusform>Suche nach den beliebtesten Sendern ergab %n Treffer</numerusform>
        </translation>
    </message>
    <message>
        <source>No channel was found.</source>
        <translation>Kein Sender gefunden.</translation>
    </message>
    <message>
        <source>The search failed: %1</source>
        <translation>Die Suche ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>The most popular channels could not be loaded: %1</source>
        <translation>Die beliebtesten Sender konnten nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>The channel could not be added: %1</source>
        <translation>Der Sender konnte nicht hinzugefügt werden: %1</translation>
    </message>
    <message>
        <source>The channel could not be created: %1</source>
        <translation>Der Sender konnte nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>The channel could not be removed: %1</source>
        <translation>Der Sender konnte nicht entfernt werden: %1</translation>
    </message>
    <message>
        <source>Adding %1...</source>
        <translation>%1 wird hinzugefügt...</translation>
    </message>
    <message>
        <source>%1 was successfully added</source>
        <translation>%1 wurde hinzugefügt</translation>
    </message>
    <message>
        <source>Channel was removed</source>
        <translation>Der Sender wurde entfernt</translation>
    </message>
    <message>
        <source>The service has not removed it.</source>
        <translation>Der Dienst hat ihn nicht entfernt.</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation>In Mehrfachansicht öffnen</translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation>Aus Mehrfachansicht entfernen</translation>
    </message>
    <message>
        <source>Save to My Channels</source>
        <translation>In „Meine Sender“ speichern</translation>
    </message>
    <message>
        <source>New Channel...</source>
        <translation>Neuer Sender...</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetItemDelegate</name>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetModel</name>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Bewertung</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Sendername</translation>
    </message>
</context>
<context>
    <name>ChannelStream</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation>Sender wird geladen...
Bitte warten</translation>
    </message>
    <message>
        <source>Recording stopped: %1</source>
        <translation>Aufnahme abgebrochen: %1</translation>
    </message>
    <message>
        <source>%1, a file</source>
        <translation>%1, eine Datei</translation>
    </message>
    <message>
        <source>%1, live, through a buffer</source>
        <translation>%1, live, über einen Puffer</translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation>%1, live</translation>
    </message>
    <message>
        <source>a file on this computer</source>
        <translation>eine Datei auf diesem Rechner</translation>
    </message>
</context>
<context>
    <name>ChannelTitle</name>
    <message>
        <source>Unnamed channel</source>
        <translation>Unbenannter Sender</translation>
    </message>
</context>
<context>
    <name>ChannelView</name>
    <message>
        <source>Sort by</source>
        <translation>Sortieren nach</translation>
    </message>
</context>
<context>
    <name>ChatColours</name>
    <message>
        <source>Room Name</source>
        <translation>Raumname</translation>
    </message>
    <message>
        <source>Your Alias</source>
        <translation>Eigener Name</translation>
    </message>
    <message>
        <source>Other Alias</source>
        <translation>Anderer Name</translation>
    </message>
    <message>
        <source>Ignored Alias</source>
        <translation>Ignorierter Name</translation>
    </message>
    <message>
        <source>Admin Alias</source>
        <translation>Adminname</translation>
    </message>
    <message>
        <source>Bot Alias</source>
        <translation>Botname</translation>
    </message>
    <message>
        <source>Timestamp</source>
        <translation>Zeitstempel</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
</context>
<context>
    <name>ChatPage</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>&amp;Size of the text:</source>
        <translation>Text&amp;größe:</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Sample of a chat</source>
        <translation>Chatbeispiel</translation>
    </message>
    <message>
        <source>Good evening!</source>
        <translation>Guten Abend!</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Skin</source>
        <translation>Eigener Rahmen</translation>
    </message>
</context>
<context>
    <name>ColourButton</name>
    <message>
        <source>%1: colour %2</source>
        <translation>%1: Farbe %2</translation>
    </message>
</context>
<context>
    <name>ConnectionTest</name>
    <message>
        <source>This computer finds no way to %1. Is it connected to a network?</source>
        <translation>Dieser Computer findet keinen Weg zu %1. Ist er mit einem Netz verbunden?</translation>
    </message>
    <message>
        <source>This computer finds no way to the proxy %1. Is its name right?</source>
        <translation>Dieser Computer findet keinen Weg zum Proxy %1. Stimmt der Name?</translation>
    </message>
    <message>
        <source>Something on the way answers in place of %1: it can&apos;t be reached from there.</source>
        <translation>Eine Zwischenstation antwortet anstelle von %1: Der Dienst ist von dort nicht erreichbar.</translation>
    </message>
    <message>
        <source>The network answers with a page of %1. Perhaps it wants you to sign in there first.</source>
        <translation>Das Netz antwortet mit einer Seite von %1. Vielleicht müssen Sie sich dort erst anmelden.</translation>
    </message>
    <message>
        <source>%1 answered within %2 ms.</source>
        <translation>%1 hat innerhalb von %2 ms geantwortet.</translation>
    </message>
    <message>
        <source>%1 accepts no connection.</source>
        <translation>%1 nimmt keine Verbindung an.</translation>
    </message>
    <message>
        <source>There is no machine called %1.</source>
        <translation>Es gibt keinen Rechner namens %1.</translation>
    </message>
    <message numerus="yes">
        <source>%1 did not answer within %n second(s).</source>
        <translation>
            <numerusform>%1 hat innerhalb von %n Sekunde nicht geantwortet.</numerusform>
            <numerusform>%1 hat innerhalb von %n Sekunden nicht geantwortet.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 could not prove who it is: its certificate is not valid.</source>
        <translation>%1 konnte sich nicht ausweisen: Das Zertifikat ist ungültig.</translation>
    </message>
    <message>
        <source>The proxy %1 accepts no connection. Is the port right?</source>
        <translation>Der Proxy %1 nimmt keine Verbindung an. Stimmt der Port?</translation>
    </message>
    <message>
        <source>There is no proxy called %1.</source>
        <translation>Es gibt keinen Proxy namens %1.</translation>
    </message>
    <message>
        <source>The proxy %1 did not answer in time.</source>
        <translation>Der Proxy %1 hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The proxy %1 wants a user name and a password, or does not accept these.</source>
        <translation>Der Proxy %1 verlangt Benutzernamen und Passwort oder akzeptiert diese nicht.</translation>
    </message>
    <message>
        <source>%1 could not be reached: %2</source>
        <translation>%1 ist nicht erreichbar: %2</translation>
    </message>
</context>
<context>
    <name>DeleteChannelDialog</name>
    <message>
        <source>Delete Channel</source>
        <translation>Sender löschen</translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel &lt;b&gt;%1&lt;/b&gt; from My Channels?&lt;br&gt;&lt;br&gt;</source>
        <translation>Möchten Sie den Sender &lt;b&gt;%1&lt;/b&gt; wirklich aus „Meine Sender“ löschen?&lt;br&gt;&lt;br&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Note:&lt;/b&gt; To restore a partner channel that you have deleted &lt;a href=&quot;manage&quot;&gt;click here&lt;/a&gt;.</source>
        <translation>&lt;b&gt;Hinweis:&lt;/b&gt; Um einen gelöschten Partnersender wiederherzustellen, &lt;a href=&quot;manage&quot;&gt;klicken Sie hier&lt;/a&gt;.</translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel %1 from My Channels?</source>
        <translation>Möchten Sie den Sender %1 wirklich aus „Meine Sender“ löschen?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>EffectEditor</name>
    <message>
        <source>Line numbers</source>
        <translation>Zeilennummern</translation>
    </message>
</context>
<context>
    <name>EffectNames</name>
    <message>
        <source>An effect needs a name.</source>
        <translation>Ein Effekt braucht einen Namen.</translation>
    </message>
    <message>
        <source>This name is too long.</source>
        <translation>Dieser Name ist zu lang.</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message>
        <source>Black and White</source>
        <translation>Schwarzweiß</translation>
    </message>
    <message>
        <source>Film Grain</source>
        <translation>Filmkorn</translation>
    </message>
    <message>
        <source>Scan Lines</source>
        <translation>Bildzeilen</translation>
    </message>
</context>
<context>
    <name>EffectTrial</name>
    <message>
        <source>The graphics driver does not compile this effect.</source>
        <translation>Der Grafiktreiber kann diesen Effekt nicht übersetzen.</translation>
    </message>
    <message>
        <source>The graphics driver takes too long to compile this effect. It was switched off.</source>
        <translation>Der Grafiktreiber braucht zu lange, um diesen Effekt zu übersetzen. Er wurde ausgeschaltet.</translation>
    </message>
    <message>
        <source>One picture would take about %1 ms with this effect. That is too long to play: it was switched off.</source>
        <translation>Ein Bild würde mit diesem Effekt etwa %1 ms dauern. Das ist zu lang für die Wiedergabe: Er wurde ausgeschaltet.</translation>
    </message>
    <message>
        <source>A picture is never finished with this effect. It was switched off.</source>
        <translation>Mit diesem Effekt wird ein Bild niemals fertig. Er wurde ausgeschaltet.</translation>
    </message>
    <message>
        <source>The graphics driver fails with this effect. It was switched off.</source>
        <translation>Der Grafiktreiber scheitert an diesem Effekt. Er wurde ausgeschaltet.</translation>
    </message>
    <message>
        <source>This effect could not be tried, so it is not shown.</source>
        <translation>Dieser Effekt konnte nicht erprobt werden und wird daher nicht gezeigt.</translation>
    </message>
</context>
<context>
    <name>EffectsDialog</name>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>&amp;Show effects on the picture</source>
        <translation>&amp;Effekte auf dem Bild anzeigen</translation>
    </message>
    <message>
        <source>Effects and their source</source>
        <translation>Effekte und ihr Quelltext</translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>The source as it was before you changed it</source>
        <translation>Der Quelltext, wie er vor Ihren Änderungen war</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Source of the effect</source>
        <translation>Quelltext des Effekts</translation>
    </message>
    <message>
        <source>Comes with the program. Duplicate it to make your own of it.</source>
        <translation>Gehört zum Programm. Duplizieren Sie ihn, um einen eigenen daraus zu machen.</translation>
    </message>
    <message>
        <source>What you type is kept, and shown while the effect is on.</source>
        <translation>Was Sie eingeben, wird gespeichert und gezeigt, solange der Effekt an ist.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>New effect</source>
        <translation>Neuer Effekt</translation>
    </message>
    <message>
        <source>&amp;Name of the effect:</source>
        <translation>&amp;Name des Effekts:</translation>
    </message>
    <message>
        <source>Delete the effect &quot;%1&quot;? It can&apos;t be brought back.</source>
        <translation>Den Effekt „%1“ löschen? Er kann nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>EffectsLibrary</name>
    <message>
        <source>There is an effect called &quot;%1&quot; already.</source>
        <translation>Es gibt bereits einen Effekt namens „%1“.</translation>
    </message>
    <message>
        <source>The effects are still being read.</source>
        <translation>Die Effekte werden noch gelesen.</translation>
    </message>
    <message numerus="yes">
        <source>There can be %n effect(s) at most.</source>
        <translation>
            <numerusform>Es kann höchstens %n Effekt geben.</numerusform>
            <numerusform>Es kann höchstens %n Effekte geben.</numerusform>
        </translation>
    </message>
    <message>
        <source>This effect is too long.</source>
        <translation>Dieser Effekt ist zu lang.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be renamed.</source>
        <translation>Dieser Effekt kann nicht umbenannt werden.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be deleted.</source>
        <translation>Dieser Effekt kann nicht gelöscht werden.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be changed.</source>
        <translation>Dieser Effekt kann nicht geändert werden.</translation>
    </message>
</context>
<context>
    <name>EffectsList</name>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Earlier</source>
        <translation>Früher</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Effects, in the order in which they are applied</source>
        <translation>Effekte in der Reihenfolge ihrer Anwendung</translation>
    </message>
</context>
<context>
    <name>EffectsStore</name>
    <message>
        <source>There are too many effects in %1.</source>
        <translation>In %1 sind zu viele Effekte.</translation>
    </message>
    <message>
        <source>The file %1 is not named as effects are.</source>
        <translation>Die Datei %1 ist nicht wie ein Effekt benannt.</translation>
    </message>
    <message>
        <source>The effect in %1 can&apos;t be read.</source>
        <translation>Der Effekt in %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The order of the effects in %1 can&apos;t be read.</source>
        <translation>Die Reihenfolge der Effekte in %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The program ended while this effect was being tried. It was switched off.</source>
        <translation>Das Programm endete, während dieser Effekt erprobt wurde. Er wurde ausgeschaltet.</translation>
    </message>
    <message>
        <source>The program ended while the effect &quot;%1&quot; was being tried. It was switched off.</source>
        <translation>Das Programm endete, während der Effekt „%1“ erprobt wurde. Er wurde ausgeschaltet.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed.</source>
        <translation>%1 konnte nicht entfernt werden.</translation>
    </message>
</context>
<context>
    <name>FileChannels</name>
    <message>
        <source>Media files (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;All files (*)</source>
        <translation>Mediendateien (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open Video File</source>
        <translation>Videodatei öffnen</translation>
    </message>
    <message>
        <source>Open Video Files</source>
        <translation>Videodateien öffnen</translation>
    </message>
    <message>
        <source>Add Video Files</source>
        <translation>Videodateien hinzufügen</translation>
    </message>
</context>
<context>
    <name>GLCarouselBar</name>
    <message>
        <source>Channel carousel</source>
        <translation>Senderkarussell</translation>
    </message>
    <message>
        <source>The channel to the left</source>
        <translation>Der Sender links</translation>
    </message>
    <message>
        <source>Play this channel</source>
        <translation>Diesen Sender abspielen</translation>
    </message>
    <message>
        <source>Show this channel beside the others</source>
        <translation>Diesen Sender neben den anderen zeigen</translation>
    </message>
    <message>
        <source>The channel to the right</source>
        <translation>Der Sender rechts</translation>
    </message>
</context>
<context>
    <name>GLChannelBar</name>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Channel logo</source>
        <translation>Senderlogo</translation>
    </message>
    <message>
        <source>Previous channel (Page Up)</source>
        <translation>Voriger Sender (Bild auf)</translation>
    </message>
    <message>
        <source>Next channel (Page Down)</source>
        <translation>Nächster Sender (Bild ab)</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Take a screenshot</source>
        <translation>Bildschirmfoto aufnehmen</translation>
    </message>
    <message>
        <source>Channel carousel</source>
        <translation>Senderkarussell</translation>
    </message>
    <message>
        <source>Show only this channel</source>
        <translation>Nur diesen Sender zeigen</translation>
    </message>
    <message>
        <source>Show another channel beside this one</source>
        <translation>Einen weiteren Sender daneben zeigen</translation>
    </message>
    <message>
        <source>Leave full screen (Escape)</source>
        <translation>Vollbild verlassen (Esc)</translation>
    </message>
    <message>
        <source>Full screen (Ctrl+F)</source>
        <translation>Vollbild (Strg+F)</translation>
    </message>
    <message>
        <source>Sound on (Ctrl+M)</source>
        <translation>Ton an (Strg+M)</translation>
    </message>
    <message>
        <source>Mute (Ctrl+M)</source>
        <translation>Ton aus (Strg+M)</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Abspielen (Leertaste)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Leertaste)</translation>
    </message>
</context>
<context>
    <name>GLIndicatorBar</name>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message numerus="yes">
        <source>%n new chat message(s)</source>
        <translation>
            <numerusform>%n neue Chatnachricht</numerusform>
            <numerusform>%n neue Chatnachrichten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new alert(s)</source>
        <translation>
            <numerusform>%n neue Meldung</numerusform>
            <numerusform>%n neue Meldungen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLMovie</name>
    <message>
        <source>Could not locate a video decoder. Cannot play</source>
        <translation>Kein Videodecoder gefunden. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>Could not open video codec. Cannot play</source>
        <translation>Der Videocodec konnte nicht geöffnet werden. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>No audio device present.</source>
        <translation>Kein Audiogerät vorhanden.</translation>
    </message>
    <message>
        <source>Could not locate an audio decoder. Cannot play</source>
        <translation>Kein Audiodecoder gefunden. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>Could not open audio codec. Cannot play</source>
        <translation>Der Audiocodec konnte nicht geöffnet werden. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>No video or audio streams found. Cannot play</source>
        <translation>Keine Video- oder Audiostreams gefunden. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>The audio format is not supported. Cannot play</source>
        <translation>Das Audioformat wird nicht unterstützt. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>Could not open sound device.</source>
        <translation>Audiogerät konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Failed creating movie texture. Cannot play</source>
        <translation>Die Videotextur konnte nicht angelegt werden. Wiedergabe nicht möglich</translation>
    </message>
    <message>
        <source>Not enough memory to play. Cannot play</source>
        <translation>Nicht genug Speicher. Wiedergabe nicht möglich</translation>
    </message>
</context>
<context>
    <name>GLOverlay</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Viewpoint</source>
        <translation>Blickpunkt</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation>Lautstärke %1 %</translation>
    </message>
    <message>
        <source>Sign in to watch the channels of your account</source>
        <translation>Melden Sie sich an, um die Sender Ihres Kontos zu sehen</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiterer</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (Ctrl and click: close)</source>
        <translation>%1 (Strg und Klick: schließen)</translation>
    </message>
    <message>
        <source>%1 (click: sound; Ctrl and click: close)</source>
        <translation>%1 (Klick: Ton; Strg und Klick: schließen)</translation>
    </message>
    <message>
        <source>Choose a channel, or drop a file or an address here</source>
        <translation>Sender wählen oder eine Datei oder Adresse hierher ziehen</translation>
    </message>
</context>
<context>
    <name>GLProgressIndicator</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Buffer %1 %</source>
        <translation>Puffer %1 %</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
</context>
<context>
    <name>GLTitleBar</name>
    <message>
        <source>What plays</source>
        <translation>Was läuft</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Hide the channels beside the picture</source>
        <translation>Sender neben dem Bild ausblenden</translation>
    </message>
    <message>
        <source>Show the channels beside the picture</source>
        <translation>Sender neben dem Bild einblenden</translation>
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
        <translation>Bild</translation>
    </message>
    <message>
        <source>What plays; Tab goes to its controls</source>
        <translation>Was läuft; Tab führt zu den Bedienelementen</translation>
    </message>
    <message>
        <source>There are no channels yet</source>
        <translation>Es gibt noch keine Sender</translation>
    </message>
    <message>
        <source>The page could not be loaded</source>
        <translation>Die Seite konnte nicht geladen werden</translation>
    </message>
    <message>
        <source>Loading... %1 %</source>
        <translation>Wird geladen... %1 %</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>&amp;First, play:</source>
        <translation>&amp;Zuerst abspielen:</translation>
    </message>
    <message>
        <source>what played last</source>
        <translation>was zuletzt lief</translation>
    </message>
    <message>
        <source>the first channel</source>
        <translation>den ersten Sender</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>&amp;Always on top of other windows</source>
        <translation>Immer im &amp;Vordergrund</translation>
    </message>
    <message>
        <source>Show the &amp;menu bar</source>
        <translation>&amp;Menüleiste anzeigen</translation>
    </message>
    <message>
        <source>Show the &amp;channel bar while the pointer is over the picture</source>
        <translation>&amp;Senderleiste anzeigen, solange der Mauszeiger über dem Bild ist</translation>
    </message>
    <message>
        <source>Show &amp;tips over the picture</source>
        <translation>&amp;Tipps über dem Bild anzeigen</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Bildschirmfotos</translation>
    </message>
    <message>
        <source>Directory of screenshots</source>
        <translation>Ordner für Bildschirmfotos</translation>
    </message>
    <message>
        <source>Save them &amp;in:</source>
        <translation>S&amp;peichern in:</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>Sp&amp;rache:</translation>
    </message>
    <message>
        <source>The language changes at the next start of Ombravision.</source>
        <translation>Die Sprache wechselt beim nächsten Start von Ombravision.</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>&amp;Wählen...</translation>
    </message>
    <message>
        <source>Where the desktop keeps a list of its own of what starts with it, add &quot;ombravision -startup&quot; there.</source>
        <translation>Hat der Desktop eine eigene Liste dessen, was mit ihm startet, tragen Sie dort „ombravision -startup“ ein.</translation>
    </message>
</context>
<context>
    <name>HttpFileDataSource</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation>Sender wird geladen...
Bitte warten</translation>
    </message>
    <message>
        <source>The file is too long to be kept in memory</source>
        <translation>Die Datei ist zu lang für den Arbeitsspeicher</translation>
    </message>
    <message>
        <source>Failed to open %1</source>
        <translation>%1 konnte nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>HttpFileDownloader</name>
    <message>
        <source>The address cannot be downloaded from.</source>
        <translation>Von dieser Adresse kann nichts heruntergeladen werden.</translation>
    </message>
    <message>
        <source>The connection failed (%1).</source>
        <translation>Die Verbindung ist fehlgeschlagen (%1).</translation>
    </message>
    <message>
        <source>The server answered %1 %2.</source>
        <translation>Der Server hat mit %1 %2 geantwortet.</translation>
    </message>
    <message>
        <source>The server leads to another place that cannot be used.</source>
        <translation>Der Server verweist auf ein anderes Ziel, das nicht verwendet werden kann.</translation>
    </message>
</context>
<context>
    <name>InviteDialog</name>
    <message>
        <source>Invite a Friend</source>
        <translation>Freunde einladen</translation>
    </message>
    <message>
        <source>&amp;Your letter:</source>
        <translation>&amp;Ihr Brief:</translation>
    </message>
    <message>
        <source>Hello,

I watch live television with Ombravision, and thought you might like it, too. You can get it here:

%1

See you there!
</source>
        <translation>Hallo,

ich sehe Live-Fernsehen mit Ombravision und dachte, es könnte dir auch gefallen. Hier bekommst du es:

%1

Bis bald!
</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Write a mail</source>
        <translation>E-&amp;Mail schreiben</translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
    <message>
        <source>No program for mails could be opened. Copy the letter instead.</source>
        <translation>Kein Mailprogramm konnte geöffnet werden. Kopieren Sie stattdessen den Brief.</translation>
    </message>
</context>
<context>
    <name>KeysDialog</name>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Leave full screen, close a dialog</source>
        <translation>Vollbild verlassen, Dialog schließen</translation>
    </message>
    <message>
        <source>1 to 9</source>
        <translation>1 bis 9</translation>
    </message>
    <message>
        <source>Choose one of the open channels</source>
        <translation>Einen der offenen Sender wählen</translation>
    </message>
    <message>
        <source>Page up, Page down</source>
        <translation>Bild auf, Bild ab</translation>
    </message>
    <message>
        <source>Previous and next channel</source>
        <translation>Voriger und nächster Sender</translation>
    </message>
    <message>
        <source>Ctrl with a click</source>
        <translation>Strg und Klick</translation>
    </message>
    <message>
        <source>Open a channel beside the others, or close it</source>
        <translation>Sender neben den anderen öffnen oder ihn schließen</translation>
    </message>
    <message>
        <source>Double click</source>
        <translation>Doppelklick</translation>
    </message>
    <message>
        <source>Full screen on and off</source>
        <translation>Vollbild ein und aus</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Mausrad</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Strg+Eingabe</translation>
    </message>
    <message>
        <source>In &quot;Open Video Stream&quot;: open it beside what plays</source>
        <translation>In „Videostream öffnen“: neben dem öffnen, was läuft</translation>
    </message>
    <message>
        <source>Alt with a letter</source>
        <translation>Alt und ein Buchstabe</translation>
    </message>
    <message>
        <source>What has that letter underlined</source>
        <translation>Was diesen Buchstaben unterstrichen hat</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Keys and what they do</source>
        <translation>Tasten und ihre Wirkung</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>What it does</source>
        <translation>Wirkung</translation>
    </message>
    <message>
        <source>Tab, arrows</source>
        <translation>Tab, Pfeiltasten</translation>
    </message>
    <message>
        <source>Over the picture: go through the controls</source>
        <translation>Über dem Bild: durch die Bedienelemente gehen</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>In the list: play the channel</source>
        <translation>In der Liste: den Sender abspielen</translation>
    </message>
    <message>
        <source>In the list: open the channel beside the others</source>
        <translation>In der Liste: den Sender neben den anderen öffnen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>In the list: a look at the channel, and back</source>
        <translation>In der Liste: Vorschau des Senders, und zurück</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Strg+D</translation>
    </message>
    <message>
        <source>In the list: favourite or not</source>
        <translation>In der Liste: Favorit oder nicht</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>In the list: delete the channel</source>
        <translation>In der Liste: den Sender löschen</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>Buchstaben</translation>
    </message>
    <message>
        <source>In the list: filter or search</source>
        <translation>In der Liste: filtern oder suchen</translation>
    </message>
    <message>
        <source>Left, Right, Return</source>
        <translation>Links, Rechts, Eingabe</translation>
    </message>
    <message>
        <source>In the carousel: turn it, choose what is in front</source>
        <translation>Im Karussell: drehen, den vorderen Sender wählen</translation>
    </message>
    <message>
        <source>Space, P</source>
        <translation>Leertaste, P</translation>
    </message>
    <message>
        <source>Over the picture: pause and go on</source>
        <translation>Über dem Bild: anhalten und fortsetzen</translation>
    </message>
    <message>
        <source>Menu, Shift+F10</source>
        <translation>Menü, Umschalt+F10</translation>
    </message>
    <message>
        <source>The menu of what is chosen</source>
        <translation>Das Menü dessen, was gewählt ist</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Sign In</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Sign &amp;In</source>
        <translation>&amp;Anmelden</translation>
    </message>
    <message>
        <source>&amp;Keep me signed in</source>
        <translation>Angemeldet &amp;bleiben</translation>
    </message>
    <message>
        <source>I have no account yet: &amp;create one...</source>
        <translation>Ich habe noch kein Konto: eines an&amp;legen...</translation>
    </message>
</context>
<context>
    <name>LoginManager</name>
    <message>
        <source>The service does not accept this e-mail address and password.</source>
        <translation>Der Dienst akzeptiert diese E-Mail-Adresse mit diesem Passwort nicht.</translation>
    </message>
    <message>
        <source>You must install the critical update</source>
        <translation>Sie müssen die kritische Aktualisierung installieren</translation>
    </message>
    <message>
        <source>Your password could not be stored. You will be asked for it at the next start.</source>
        <translation>Ihr Passwort konnte nicht gespeichert werden. Beim nächsten Start werden Sie danach gefragt.</translation>
    </message>
    <message>
        <source>Signing in...</source>
        <translation>Anmeldung läuft...</translation>
    </message>
    <message>
        <source>Creating the account...</source>
        <translation>Konto wird angelegt...</translation>
    </message>
</context>
<context>
    <name>MenuActions</name>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Video Post Processing</source>
        <translation>Bildnachbearbeitung</translation>
    </message>
    <message>
        <source>Edit Video Post Processing</source>
        <translation>Bildnachbearbeitung anpassen</translation>
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
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Half Size</source>
        <translation>Halbe Größe</translation>
    </message>
    <message>
        <source>Normal Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Double Size</source>
        <translation>Doppelte Größe</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Strecken</translation>
    </message>
    <message>
        <source>Touch Inside</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Touch Outside</source>
        <translation>Ausfüllen</translation>
    </message>
    <message>
        <source>Channel Carousel</source>
        <translation>Senderkarussell</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>Test Channels</source>
        <translation>Sender testen</translation>
    </message>
    <message>
        <source>Run at Startup</source>
        <translation>Beim Anmelden starten</translation>
    </message>
    <message>
        <source>Increase Volume</source>
        <translation>Lauter</translation>
    </message>
    <message>
        <source>Decrease Volume</source>
        <translation>Leiser</translation>
    </message>
    <message>
        <source>Reset Speed</source>
        <translation>Normale Geschwindigkeit</translation>
    </message>
    <message>
        <source>Increase Speed</source>
        <translation>Schneller</translation>
    </message>
    <message>
        <source>Decrease Speed</source>
        <translation>Langsamer</translation>
    </message>
    <message>
        <source>Seek Forwards</source>
        <translation>Vorspulen</translation>
    </message>
    <message>
        <source>Seek backwards</source>
        <translation>Zurückspulen</translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation>Menüleiste</translation>
    </message>
    <message>
        <source>Tabs</source>
        <translation>Reiter</translation>
    </message>
    <message>
        <source>Show Chat</source>
        <translation>Chat anzeigen</translation>
    </message>
    <message>
        <source>Skin Mode</source>
        <translation>Eigener Rahmen</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Immer im Vordergrund</translation>
    </message>
    <message>
        <source>&amp;Open Video File</source>
        <translation>Videodatei ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Open Video Files</source>
        <translation>&amp;Videodateien öffnen</translation>
    </message>
    <message>
        <source>&amp;Add Video Files</source>
        <translation>Videodateien &amp;hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Open Video Stream</source>
        <translation>Video&amp;stream öffnen</translation>
    </message>
    <message>
        <source>&amp;Open Latte Stream</source>
        <translation>&amp;Latte-Stream öffnen</translation>
    </message>
    <message>
        <source>&amp;Add Latte Stream</source>
        <translation>Latte-Stream hin&amp;zufügen</translation>
    </message>
    <message>
        <source>&amp;Add/Remove channels</source>
        <translation>Sender &amp;hinzufügen/entfernen</translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation>&amp;Minimieren</translation>
    </message>
    <message>
        <source>&amp;Sign In</source>
        <translation>&amp;Anmelden</translation>
    </message>
    <message>
        <source>&amp;Sign Out</source>
        <translation>A&amp;bmelden</translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>&amp;Konto anlegen</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;About Ombravision</source>
        <translation>Ü&amp;ber Ombravision</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Tutorial</source>
        <translation>&amp;Einführung</translation>
    </message>
    <message>
        <source>&amp;Support</source>
        <translation>&amp;Unterstützung</translation>
    </message>
    <message>
        <source>&amp;Feedback</source>
        <translation>&amp;Rückmeldung</translation>
    </message>
    <message>
        <source>&amp;Buy Ombravision Pro</source>
        <translation>Ombravision Pro &amp;kaufen</translation>
    </message>
    <message>
        <source>&amp;Invite Friend</source>
        <translation>Freunde e&amp;inladen</translation>
    </message>
    <message>
        <source>Send Support Information</source>
        <translation>Angaben zur Unterstützung senden</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Show Window</source>
        <translation>&amp;Fenster anzeigen</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Fenster schließen</translation>
    </message>
</context>
<context>
    <name>MyChannels</name>
    <message>
        <source>The service has not removed it.</source>
        <translation>Der Dienst hat ihn nicht entfernt.</translation>
    </message>
</context>
<context>
    <name>NetworkErrors</name>
    <message>
        <source>No error</source>
        <translation>Kein Fehler</translation>
    </message>
    <message>
        <source>There was a general error</source>
        <translation>Allgemeiner Fehler</translation>
    </message>
    <message>
        <source>End of stream encountered</source>
        <translation>Das Ende des Streams ist erreicht</translation>
    </message>
    <message>
        <source>Could not resolve resource</source>
        <translation>Ressource konnte nicht aufgelöst werden</translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation>Keine Verbindung zum Server möglich</translation>
    </message>
    <message>
        <source>Stream unavailable</source>
        <translation>Stream nicht verfügbar</translation>
    </message>
    <message>
        <source>Resource not available</source>
        <translation>Ressource nicht verfügbar</translation>
    </message>
    <message>
        <source>A remote server closed the connection</source>
        <translation>Ein entfernter Server hat die Verbindung geschlossen</translation>
    </message>
    <message>
        <source>Authentication required</source>
        <translation>Anmeldung erforderlich</translation>
    </message>
    <message>
        <source>Proxy authentication required</source>
        <translation>Anmeldung am Proxy erforderlich</translation>
    </message>
    <message>
        <source>The operation unexpectedly succeeded</source>
        <translation>Der Vorgang war unerwartet erfolgreich</translation>
    </message>
    <message>
        <source>The operation was unexpectedly redirected</source>
        <translation>Der Vorgang wurde unerwartet umgeleitet</translation>
    </message>
    <message>
        <source>There was an unexpected client error</source>
        <translation>Unerwarteter Fehler des Clients</translation>
    </message>
    <message>
        <source>There was an unexpected server error</source>
        <translation>Unerwarteter Fehler des Servers</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted</source>
        <translation>Dem Zertifikat des Servers wird nicht vertraut</translation>
    </message>
    <message>
        <source>The server sends nothing that can be played</source>
        <translation>Der Server sendet nichts, was abgespielt werden kann</translation>
    </message>
</context>
<context>
    <name>NetworkPage</name>
    <message>
        <source>Proxy</source>
        <translation>Proxy</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Art:</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>as the system says</source>
        <translation>wie im System eingestellt</translation>
    </message>
    <message>
        <source>HTTP</source>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>HTTP, for web pages only</source>
        <translation>HTTP, nur für Webseiten</translation>
    </message>
    <message>
        <source>SOCKS 5</source>
        <translation>SOCKS 5</translation>
    </message>
    <message>
        <source>another (%1)</source>
        <translation>anderer (%1)</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>&amp;Host:</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port:</translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation>&amp;Benutzer:</translation>
    </message>
    <message>
        <source>Pass&amp;word:</source>
        <translation>Pass&amp;wort:</translation>
    </message>
    <message>
        <source>&amp;Test the connection</source>
        <translation>Verbindung &amp;testen</translation>
    </message>
    <message>
        <source>The test was ended.</source>
        <translation>Der Test wurde beendet.</translation>
    </message>
    <message>
        <source>End the &amp;test</source>
        <translation>&amp;Test beenden</translation>
    </message>
    <message>
        <source>Cache of channels and logos</source>
        <translation>Cache für Sender und Logos</translation>
    </message>
    <message>
        <source>&amp;Limit:</source>
        <translation>&amp;Grenze:</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> MiB</translation>
    </message>
    <message>
        <source>&amp;Empty the cache</source>
        <translation>Cache &amp;leeren</translation>
    </message>
    <message>
        <source>The cache is empty.</source>
        <translation>Der Cache ist leer.</translation>
    </message>
    <message>
        <source>Some files could not be removed; %1 are left.</source>
        <translation>Einige Dateien konnten nicht entfernt werden; %1 verbleiben.</translation>
    </message>
    <message>
        <source>Asking the service...</source>
        <translation>Der Dienst wird gefragt...</translation>
    </message>
    <message>
        <source>Removing...</source>
        <translation>Wird entfernt...</translation>
    </message>
</context>
<context>
    <name>NewChannelDialog</name>
    <message>
        <source>New Channel</source>
        <translation>Neuer Sender</translation>
    </message>
    <message>
        <source>Television</source>
        <translation>Fernsehen</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>A&amp;rt:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>&amp;Beschreibung:</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Anlegen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>This is no address of the network: it begins with mms://, rtsp://, http:// or the like.</source>
        <translation>Das ist keine Netzadresse: Eine solche beginnt mit mms://, rtsp://, http:// oder Ähnlichem.</translation>
    </message>
    <message>
        <source>Other viewers can find the channel, too.</source>
        <translation>Auch andere Zuschauer können den Sender finden.</translation>
    </message>
</context>
<context>
    <name>OpenStreamDialog</name>
    <message>
        <source>Open Video Stream</source>
        <translation>Videostream öffnen</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
    <message>
        <source>&amp;Forget all</source>
        <translation>Alle &amp;vergessen</translation>
    </message>
    <message>
        <source>Forget the addresses that were opened before</source>
        <translation>Zuvor geöffnete Adressen vergessen</translation>
    </message>
    <message>
        <source>Open &amp;beside</source>
        <translation>&amp;Daneben öffnen</translation>
    </message>
    <message>
        <source>Beside what plays (Ctrl+Return)</source>
        <translation>Neben dem, was läuft (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>What the address is</source>
        <translation>Was die Adresse ist</translation>
    </message>
</context>
<context>
    <name>PanelNotice</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Chat</source>
        <translation>Chat</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>Stan&amp;dard</translation>
    </message>
    <message>
        <source>This page as in a new installation</source>
        <translation>Diese Seite wie nach einer Neuinstallation</translation>
    </message>
    <message>
        <source>You are not signed in. Each account keeps some of this for itself.</source>
        <translation>Sie sind nicht angemeldet. Jedes Konto behält einiges davon für sich.</translation>
    </message>
</context>
<context>
    <name>PreferencesPage</name>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>streams of this kind cannot be recorded</source>
        <translation>Streams dieser Art können nicht aufgenommen werden</translation>
    </message>
    <message>
        <source>the disk is too slow</source>
        <translation>der Datenträger ist zu langsam</translation>
    </message>
    <message>
        <source>%1 cannot be made</source>
        <translation>%1 kann nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>RestfulChannelDescriptionProvider</name>
    <message>
        <source>Error parsing channels
Retrying...</source>
        <translation>Fehler beim Lesen der Sender
Neuer Versuch...</translation>
    </message>
</context>
<context>
    <name>SignupDialog</name>
    <message>
        <source>Create Account</source>
        <translation>Konto anlegen</translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>&amp;Konto anlegen</translation>
    </message>
    <message>
        <source>Password &amp;again:</source>
        <translation>Passwort &amp;wiederholen:</translation>
    </message>
    <message>
        <source>&amp;Send me news about programmes and channels</source>
        <translation>&amp;Neues über Sendungen und Sender zusenden</translation>
    </message>
    <message>
        <source>Your e-mail address is your user name. It gets letters about your account and no others, unless you allow them here.</source>
        <translation>Ihre E-Mail-Adresse ist Ihr Benutzername. Sie erhalten dort nur Post zu Ihrem Konto, sofern Sie hier nicht mehr erlauben.</translation>
    </message>
    <message>
        <source>This is not an e-mail address yet.</source>
        <translation>Das ist noch keine E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>The password needs one more character.</source>
        <translation>Das Passwort braucht noch ein Zeichen.</translation>
    </message>
    <message>
        <source>The password needs %1 more characters.</source>
        <translation>Das Passwort braucht noch %1 Zeichen.</translation>
    </message>
    <message>
        <source>The two passwords differ.</source>
        <translation>Die beiden Passwörter sind verschieden.</translation>
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
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Ombravision has detected that your system does not have a proper opengl graphics driver installed.&lt;br&gt;This will cause Ombravision to run slowly especially in fullscreen mode.&lt;br&gt;Please install the driver of the maker of your graphics card, or the package that your distribution has for it, and start Ombravision again.</source>
        <translation>Ombravision hat festgestellt, dass auf Ihrem System kein richtiger OpenGL-Grafiktreiber installiert ist.&lt;br&gt;Ombravision läuft daher langsam, vor allem im Vollbild.&lt;br&gt;Bitte installieren Sie den Treiber des Herstellers Ihrer Grafikkarte oder das Paket Ihrer Distribution dafür und starten Sie Ombravision neu.</translation>
    </message>
</context>
<context>
    <name>SoapAllowedChannels</name>
    <message>
        <source>The answer of the service has no list of channels.</source>
        <translation>Die Antwort des Dienstes enthält keine Senderliste.</translation>
    </message>
</context>
<context>
    <name>SoapReply</name>
    <message>
        <source>it is no answer to %1</source>
        <translation>sie ist keine Antwort auf %1</translation>
    </message>
    <message>
        <source>The answer of the service cannot be read: %1.</source>
        <translation>Die Antwort des Dienstes kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>it has a document type</source>
        <translation>sie hat einen Dokumenttyp</translation>
    </message>
    <message>
        <source>it has too many parts</source>
        <translation>sie hat zu viele Teile</translation>
    </message>
    <message>
        <source>The service reports a fault and does not say which.</source>
        <translation>Der Dienst meldet einen Fehler, nennt ihn aber nicht.</translation>
    </message>
</context>
<context>
    <name>SoapRequest</name>
    <message>
        <source>The answer of the service is empty.</source>
        <translation>Die Antwort des Dienstes ist leer.</translation>
    </message>
</context>
<context>
    <name>SoapService</name>
    <message>
        <source>The address of the service is not a web address.</source>
        <translation>Die Adresse des Dienstes ist keine Webadresse.</translation>
    </message>
    <message>
        <source>The service at %1 is not reached over a secure connection (https). What you entered could be read on the way, so it was not sent.</source>
        <translation>Der Dienst unter %1 ist nicht über eine sichere Verbindung (https) erreichbar. Ihre Eingaben könnten unterwegs gelesen werden und wurden daher nicht gesendet.</translation>
    </message>
</context>
<context>
    <name>SoapSignup</name>
    <message>
        <source>Error parsing response</source>
        <translation>Fehler beim Lesen der Antwort</translation>
    </message>
    <message>
        <source>The service made no account and does not say why.</source>
        <translation>Der Dienst hat kein Konto angelegt und nennt keinen Grund.</translation>
    </message>
</context>
<context>
    <name>SoapTransport</name>
    <message>
        <source>The service did not answer in time.</source>
        <translation>Der Dienst hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>What you entered has a character that cannot be sent.</source>
        <translation>Ihre Eingabe enthält ein Zeichen, das nicht gesendet werden kann.</translation>
    </message>
    <message>
        <source>The program is closing.</source>
        <translation>Das Programm wird beendet.</translation>
    </message>
    <message>
        <source>The answer of the service is too long.</source>
        <translation>Die Antwort des Dienstes ist zu lang.</translation>
    </message>
    <message>
        <source>The service at %1 cannot prove who it is: %2</source>
        <translation>Der Dienst unter %1 kann sich nicht ausweisen: %2</translation>
    </message>
    <message>
        <source>The service answered with the status %1.</source>
        <translation>Der Dienst hat mit dem Status %1 geantwortet.</translation>
    </message>
</context>
<context>
    <name>SoundPage</name>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>&amp;Sound goes to:</source>
        <translation>&amp;Ausgabe über:</translation>
    </message>
    <message>
        <source>&amp;Play a test tone</source>
        <translation>&amp;Testton abspielen</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>&amp;Volume:</source>
        <translation>&amp;Lautstärke:</translation>
    </message>
    <message>
        <source>&amp;Mute</source>
        <translation>T&amp;on aus</translation>
    </message>
    <message>
        <source>%1 (system)</source>
        <translation>%1 (System)</translation>
    </message>
    <message>
        <source>%1 (not there now)</source>
        <translation>%1 (derzeit nicht da)</translation>
    </message>
    <message>
        <source>The tone was played. If you heard nothing, look at the volume of the device itself.</source>
        <translation>Der Ton wurde abgespielt. Wenn Sie nichts gehört haben, prüfen Sie die Lautstärke am Gerät selbst.</translation>
    </message>
    <message>
        <source>The tone was played where the system sends sound.</source>
        <translation>Der Ton wurde dort abgespielt, wo das System den Ton ausgibt.</translation>
    </message>
    <message>
        <source>The device could not be opened. Another program may be using it alone.</source>
        <translation>Das Gerät konnte nicht geöffnet werden. Vielleicht belegt es ein anderes Programm allein.</translation>
    </message>
    <message>
        <source>The device was opened but played nothing.</source>
        <translation>Das Gerät wurde geöffnet, hat aber nichts abgespielt.</translation>
    </message>
    <message>
        <source>Playing...</source>
        <translation>Wird abgespielt...</translation>
    </message>
</context>
<context>
    <name>Splitter</name>
    <message>
        <source>Picture and tabs</source>
        <translation>Bild und Reiter</translation>
    </message>
</context>
<context>
    <name>SupportDialog</name>
    <message>
        <source>Support Information</source>
        <translation>Angaben zur Unterstützung</translation>
    </message>
    <message>
        <source>This is what helps the &amp;support to find out what is wrong. It has no passwords and no e-mail addresses. Read it, then give it to whom you like: nothing is sent from here.</source>
        <translation>Dies hilft der &amp;Unterstützung herauszufinden, was nicht stimmt. Es enthält weder Passwörter noch E-Mail-Adressen. Lesen Sie es und geben Sie es dann weiter, an wen Sie möchten: Von hier wird nichts gesendet.</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Kopiert.</translation>
    </message>
    <message>
        <source>Save Support Information</source>
        <translation>Angaben zur Unterstützung speichern</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>&amp;Speichern unter...</translation>
    </message>
    <message>
        <source>Gathering...</source>
        <translation>Wird zusammengestellt...</translation>
    </message>
</context>
<context>
    <name>TabWidget</name>
    <message>
        <source>Tabs</source>
        <translation>Reiter</translation>
    </message>
</context>
<context>
    <name>TestConsole</name>
    <message>
        <source>Test Console</source>
        <translation>Testkonsole</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>&amp;Go from channel to channel and see whether each plays</source>
        <translation>Sender &amp;nacheinander öffnen und prüfen, ob sie laufen</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Time for each:</source>
        <translation>&amp;Zeit für jeden:</translation>
    </message>
    <message>
        <source>&amp;Play a sound when one fails</source>
        <translation>&amp;Ton abspielen, wenn einer nicht läuft</translation>
    </message>
    <message>
        <source>What was found out</source>
        <translation>Was festgestellt wurde</translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s) tested</source>
        <translation>
            <numerusform>%n Sender getestet</numerusform>
            <numerusform>%n Sender getestet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n fehlgeschlagen</numerusform>
            <numerusform>%n fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Save Test Events</source>
        <translation>Testergebnisse speichern</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>&amp;Save as...</source>
        <translation>&amp;Speichern unter...</translation>
    </message>
</context>
<context>
    <name>TestEventModel</name>
    <message>
        <source>It plays.</source>
        <translation>Er läuft.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Ergebnis</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Minimise</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximise</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
<context>
    <name>TutorialDialog</name>
    <message>
        <source>Tutorial</source>
        <translation>Einführung</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Over the picture</source>
        <translation>Über dem Bild</translation>
    </message>
    <message>
        <source>Move the pointer over the picture, and the controls appear: volume, mute, previous and next channel, full screen. They go by themselves once the pointer rests.</source>
        <translation>Bewegen Sie den Mauszeiger über das Bild, und die Bedienelemente erscheinen: Lautstärke, Ton aus, voriger und nächster Sender, Vollbild. Sie verschwinden von selbst, sobald der Zeiger ruht.</translation>
    </message>
    <message>
        <source>Several at once</source>
        <translation>Mehrere zugleich</translation>
    </message>
    <message>
        <source>Hold Ctrl and click another channel to watch it beside the first. A click on a picture gives it the sound, and Ctrl with a click closes it.</source>
        <translation>Halten Sie Strg und klicken Sie auf einen weiteren Sender, um ihn neben dem ersten zu sehen. Ein Klick auf ein Bild gibt ihm den Ton, Strg und Klick schließt es.</translation>
    </message>
    <message>
        <source>Keep and find</source>
        <translation>Behalten und finden</translation>
    </message>
    <message>
        <source>Record what plays, keep a picture of it, or turn the carousel to see all channels at once. All of it is in the menus, with its keys.</source>
        <translation>Nehmen Sie auf, was läuft, machen Sie ein Bildschirmfoto davon oder drehen Sie das Karussell, um alle Sender auf einmal zu sehen. All das steht in den Menüs, mit seinen Tasten.</translation>
    </message>
    <message>
        <source>Make it yours</source>
        <translation>Nach Ihrem Geschmack</translation>
    </message>
    <message>
        <source>Sign in to have your channels and settings wherever you are. The preferences change at once, and Help has a table of all keys. You find this tutorial there, too.</source>
        <translation>Melden Sie sich an, um Ihre Sender und Einstellungen überall dabeizuhaben. Die Einstellungen wirken sofort, und in der Hilfe finden Sie eine Tabelle aller Tasten. Auch diese Einführung finden Sie dort.</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>Ombravision plays live television from all over the world. The tab &quot;Channels&quot; has your channels, and &quot;Search&quot; finds more. Choose one, and it plays.</source>
        <translation>Ombravision spielt Live-Fernsehen aus aller Welt. Im Reiter „Sender“ sind Ihre Sender, und „Suche“ findet weitere. Wählen Sie einen, und er läuft.</translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Update</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>You must install the critical update to version %1 before you can sign in again.</source>
        <translation>Sie müssen die kritische Aktualisierung auf Version %1 installieren, bevor Sie sich wieder anmelden können.</translation>
    </message>
    <message>
        <source>Version %1 of Ombravision is available.</source>
        <translation>Version %1 von Ombravision ist verfügbar.</translation>
    </message>
    <message>
        <source>It can be downloaded from %1.</source>
        <translation>Sie kann von %1 heruntergeladen werden.</translation>
    </message>
    <message>
        <source>The service names no safe address to download it from.</source>
        <translation>Der Dienst nennt keine sichere Adresse zum Herunterladen.</translation>
    </message>
    <message>
        <source>MD5 sum of the file: %1</source>
        <translation>MD5-Summe der Datei: %1</translation>
    </message>
    <message>
        <source>&amp;Download</source>
        <translation>&amp;Herunterladen</translation>
    </message>
    <message>
        <source>What is new</source>
        <translation>Was neu ist</translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Die Seite konnte nicht geöffnet werden: %1</translation>
    </message>
</context>
<context>
    <name>VideoInformationDialog</name>
    <message>
        <source>Video Information</source>
        <translation>Videoinformationen</translation>
    </message>
    <message>
        <source>Cha&amp;nnel:</source>
        <translation>&amp;Sender:</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse:</translation>
    </message>
    <message>
        <source>Transport:</source>
        <translation>Übertragung:</translation>
    </message>
    <message>
        <source>Picture:</source>
        <translation>Bild:</translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation>Ton:</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>Packets lost:</source>
        <translation>Verlorene Pakete:</translation>
    </message>
    <message>
        <source>Buffer:</source>
        <translation>Puffer:</translation>
    </message>
    <message>
        <source>Bit rate:</source>
        <translation>Bitrate:</translation>
    </message>
    <message>
        <source>Offset of the sound:</source>
        <translation>Tonversatz:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>%1, %2 x %3, %4 per second</source>
        <translation>%1, %2 x %3, %4 pro Sekunde</translation>
    </message>
    <message numerus="yes">
        <source>%1, %2 Hz, %n channel(s)</source>
        <translation>
            <numerusform>%1, %2 Hz, %n Kanal</numerusform>
            <numerusform>%1, %2 Hz, %n Kanäle</numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>%1 ms before the picture</source>
        <translation>%1 ms vor dem Bild</translation>
    </message>
    <message>
        <source>%1 ms after the picture</source>
        <translation>%1 ms nach dem Bild</translation>
    </message>
    <message>
        <source>No open channel</source>
        <translation>Kein offener Sender</translation>
    </message>
    <message>
        <source>%1 shown, %2 dropped</source>
        <translation>%1 gezeigt, %2 verworfen</translation>
    </message>
    <message>
        <source>%1 of the picture, %2 of the sound</source>
        <translation>%1 vom Bild, %2 vom Ton</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>%1 of %2 s</source>
        <translation>%1 von %2 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1, %2 x %3</source>
        <translation>%1, %2 x %3</translation>
    </message>
</context>
<context>
    <name>VideoPage</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>&amp;Size of the picture:</source>
        <translation>Bild&amp;größe:</translation>
    </message>
    <message>
        <source>as large as fits</source>
        <translation>so groß wie möglich</translation>
    </message>
    <message>
        <source>fills the window, cut off at the edges</source>
        <translation>füllt das Fenster, am Rand beschnitten</translation>
    </message>
    <message>
        <source>stretched to the window</source>
        <translation>auf das Fenster gestreckt</translation>
    </message>
    <message>
        <source>half its own size</source>
        <translation>halbe Originalgröße</translation>
    </message>
    <message>
        <source>its own size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>twice its own size</source>
        <translation>doppelte Originalgröße</translation>
    </message>
    <message>
        <source>Smooth the &amp;edges of what is drawn (antialiasing)</source>
        <translation>&amp;Kanten glätten (Antialiasing)</translation>
    </message>
    <message>
        <source>Graphics card</source>
        <translation>Grafikkarte</translation>
    </message>
    <message>
        <source>&amp;Convert colours on the graphics card</source>
        <translation>&amp;Farben auf der Grafikkarte umwandeln</translation>
    </message>
    <message>
        <source>&amp;By means of:</source>
        <translation>&amp;Verfahren:</translation>
    </message>
    <message>
        <source>the best that the driver offers</source>
        <translation>das beste, das der Treiber bietet</translation>
    </message>
    <message>
        <source>a shader</source>
        <translation>Shader</translation>
    </message>
    <message>
        <source>a fragment program</source>
        <translation>Fragmentprogramm</translation>
    </message>
    <message>
        <source>the processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>&amp;Pictures reach the screen by:</source>
        <translation>Bild&amp;ausgabe über:</translation>
    </message>
    <message>
        <source>what is fastest here</source>
        <translation>den hier schnellsten Weg</translation>
    </message>
    <message>
        <source>OpenGL</source>
        <translation>OpenGL</translation>
    </message>
    <message>
        <source>shared memory</source>
        <translation>gemeinsamen Speicher</translation>
    </message>
    <message>
        <source>Changes other than the size open the channels that play again, which takes a moment.</source>
        <translation>Außer bei der Größe werden laufende Sender bei Änderungen neu geöffnet, was einen Moment dauert.</translation>
    </message>
    <message>
        <source>De&amp;interlace pictures that are made of two fields</source>
        <translation>Bilder aus zwei Halbbildern entflechten (De&amp;interlacing)</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source>Ombravision is still there</source>
        <translation>Ombravision ist noch da</translation>
    </message>
    <message>
        <source>Click on its icon to go on watching. Exit in its menu ends the program.</source>
        <translation>Ein Klick auf das Symbol bringt das Fenster zurück. Beendet wird das Programm mit „Beenden“ in seinem Menü.</translation>
    </message>
    <message>
        <source>The screenshot could not be saved in %1</source>
        <translation>Das Bildschirmfoto konnte nicht in %1 gespeichert werden</translation>
    </message>
    <message>
        <source>Screenshot saved as %1</source>
        <translation>Bildschirmfoto gespeichert als %1</translation>
    </message>
    <message>
        <source>You are signed in as %1.</source>
        <translation>Sie sind als %1 angemeldet.</translation>
    </message>
    <message numerus="yes">
        <source>Your account shows %n channel(s) at once.</source>
        <translation>
            <numerusform>Ihr Konto zeigt einen Sender auf einmal.</numerusform>
            <numerusform>Ihr Konto zeigt %n Sender auf einmal.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (muted)</source>
        <translation>%1 (Ton aus)</translation>
    </message>
    <message>
        <source>%1 (volume %2 %)</source>
        <translation>%1 (Lautstärke %2 %)</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Die Seite konnte nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>Signing in...</source>
        <translation>Anmeldung läuft...</translation>
    </message>
</context>
<context>
    <name>WindowDialogs</name>
    <message>
        <source>Test Console</source>
        <translation>Testkonsole</translation>
    </message>
    <message>
        <source>Video Information</source>
        <translation>Videoinformationen</translation>
    </message>
    <message>
        <source>Stream Buffer</source>
        <translation>Streampuffer</translation>
    </message>
    <message>
        <source>Open Video Stream</source>
        <translation>Videostream öffnen</translation>
    </message>
    <message>
        <source>Open Latte Stream</source>
        <translation>Latte-Stream öffnen</translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>Take Screenshot</source>
        <translation>Bildschirmfoto aufnehmen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Channels</source>
        <translation>&amp;Sender</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Draw Mode</source>
        <translation>Bildanpassung</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspektive</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message numerus="yes">
        <source>%n more in the list of channels</source>
        <translation>
            <numerusform>%n weiterer in der Senderliste</numerusform>
            <numerusform>%n weitere in der Senderliste</numerusform>
        </translation>
    </message>
    <message>
        <source>No channels</source>
        <translation>Keine Sender</translation>
    </message>
    <message>
        <source>To the menus</source>
        <translation>Zu den Menüs</translation>
    </message>
    <message>
        <source>Previous Channel</source>
        <translation>Voriger Sender</translation>
    </message>
    <message>
        <source>Next Channel</source>
        <translation>Nächster Sender</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
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
