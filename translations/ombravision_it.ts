<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Ombravision</source>
        <translation>Informazioni su Ombravision</translation>
    </message>
    <message>
        <source>Ombravision %1</source>
        <translation>Ombravision %1</translation>
    </message>
    <message>
        <source>The sign of Ombravision</source>
        <translation>Logo di Ombravision</translation>
    </message>
    <message>
        <source>Live internet television on your desktop.</source>
        <translation>La televisione in diretta da Internet sul tuo desktop.</translation>
    </message>
    <message>
        <source>Built on %1. Each of them is free software under its own licence.</source>
        <translation>Basato su %1. Ciascuno è software libero con la propria licenza.</translation>
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
        <translation>E-&amp;mail:</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>&amp;Password:</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Messaggio</translation>
    </message>
</context>
<context>
    <name>AccountPage</name>
    <message>
        <source>Account</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>Sign in &amp;automatically at the start</source>
        <translation>Accedi automaticamente all&apos;a&amp;vvio</translation>
    </message>
    <message>
        <source>&amp;Name in chats:</source>
        <translation>&amp;Nome nelle chat:</translation>
    </message>
    <message>
        <source>Security</source>
        <translation>Sicurezza</translation>
    </message>
    <message>
        <source>Allow &amp;passwords to be sent where nothing keeps them secret</source>
        <translation>Consenti l&apos;invio di &amp;password non protette</translation>
    </message>
    <message>
        <source>Warning: whoever can listen on the way to the service reads your password then. Allow it only for a service on a network that is all yours.</source>
        <translation>Attenzione: chi può intercettare la connessione al servizio leggerà la tua password. Consentilo solo per un servizio su una rete interamente tua.</translation>
    </message>
    <message>
        <source>Signed in as %1.</source>
        <translation>Accesso come %1.</translation>
    </message>
    <message>
        <source>Nobody is signed in.</source>
        <translation>Nessun accesso effettuato.</translation>
    </message>
    <message>
        <source>Sign &amp;out</source>
        <translation>&amp;Esci dall&apos;account</translation>
    </message>
    <message>
        <source>You will be asked for your password once more.</source>
        <translation>La password ti verrà chiesta ancora una volta.</translation>
    </message>
    <message>
        <source>Sign &amp;in...</source>
        <translation>A&amp;ccedi...</translation>
    </message>
</context>
<context>
    <name>AddStreamsDialog</name>
    <message>
        <source>Add Streams</source>
        <translation>Aggiungi flussi</translation>
    </message>
    <message>
        <source>&amp;Addresses and files, one a line:</source>
        <translation>&amp;Indirizzi e file, uno per riga:</translation>
    </message>
    <message>
        <source>What the lines are</source>
        <translation>Contenuto delle righe</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>A&amp;ggiungi</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Il file non esiste.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Choose Files</source>
        <translation>Scegli i file</translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n line(s) are read; the others stay here.</source>
        <translation>
            <numerusform>Viene letta solo la prima riga; le altre restano qui.</numerusform>
            <numerusform>Vengono lette solo le prime %n righe; le altre restano qui.</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose &amp;files...</source>
        <translation>&amp;Scegli i file...</translation>
    </message>
    <message>
        <source>Looking for this file...</source>
        <translation>Ricerca del file...</translation>
    </message>
</context>
<context>
    <name>AddressCheck</name>
    <message>
        <source>This is too long for an address.</source>
        <translation>È troppo lungo per un indirizzo.</translation>
    </message>
    <message>
        <source>A file on this computer.</source>
        <translation>Un file su questo computer.</translation>
    </message>
    <message>
        <source>An address begins with a scheme, such as http:// or rtsp://.</source>
        <translation>Un indirizzo comincia con uno schema, come http:// o rtsp://.</translation>
    </message>
    <message>
        <source>Nothing is known about addresses that begin with %1://.</source>
        <translation>Gli indirizzi che cominciano con %1:// sono sconosciuti.</translation>
    </message>
    <message>
        <source>There is something in this address that does not belong there.</source>
        <translation>In questo indirizzo c&apos;è qualcosa che non va.</translation>
    </message>
    <message>
        <source>The name of the computer is missing after %1://.</source>
        <translation>Manca il nome del computer dopo %1://.</translation>
    </message>
    <message>
        <source>A stream of %1.</source>
        <translation>Un flusso di %1.</translation>
    </message>
</context>
<context>
    <name>AlertPreview</name>
    <message>
        <source>Sample alert</source>
        <translation>Avviso di esempio</translation>
    </message>
    <message>
        <source>Breaking news
This is how an alert looks.</source>
        <translation>Ultim&apos;ora
Ecco come appare un avviso.</translation>
    </message>
</context>
<context>
    <name>AlertsPage</name>
    <message>
        <source>Tell me of</source>
        <translation>Avvisami di</translation>
    </message>
    <message>
        <source>&amp;Breaking news on my channels</source>
        <translation>&amp;Ultim&apos;ora sui miei canali</translation>
    </message>
    <message>
        <source>&amp;New channels</source>
        <translation>&amp;Nuovi canali</translation>
    </message>
    <message>
        <source>What is &amp;talked about most</source>
        <translation>Ar&amp;gomenti più discussi</translation>
    </message>
    <message>
        <source>&amp;Messages of the service</source>
        <translation>&amp;Messaggi del servizio</translation>
    </message>
    <message>
        <source>&amp;Lines of the chat</source>
        <translation>&amp;Righe della chat</translation>
    </message>
    <message>
        <source>The bells in the list of channels say whose breaking news you are told of.</source>
        <translation>Le campanelle nell&apos;elenco indicano i canali di cui ricevi l&apos;ultim&apos;ora.</translation>
    </message>
    <message>
        <source>How</source>
        <translation>Come</translation>
    </message>
    <message>
        <source>In a &amp;window of its own</source>
        <translation>In una &amp;finestra a parte</translation>
    </message>
    <message>
        <source>In the li&amp;ve panel</source>
        <translation>Nel pannello &amp;live</translation>
    </message>
    <message>
        <source>&amp;Each for:</source>
        <translation>Cia&amp;scuno per:</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Opacity:</source>
        <translation>O&amp;pacità:</translation>
    </message>
    <message>
        <source>&amp;Show one</source>
        <translation>Mostran&amp;e uno</translation>
    </message>
    <message>
        <source>As notices of the des&amp;ktop</source>
        <translation>Come notifiche del des&amp;ktop</translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>This system does not support opengl. Exiting</source>
        <translation>Questo sistema non supporta OpenGL. Il programma si chiude.</translation>
    </message>
    <message>
        <source>This system does not support a system tray.</source>
        <translation>Questo sistema non ha un&apos;area di notifica.</translation>
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
        <translation>Impossible aprire il dispositivo audio: per ora non c&apos;è audio.</translation>
    </message>
    <message>
        <source>%1 could not be opened. Sound goes where the system sends it.</source>
        <translation>Impossible aprire %1. L&apos;audio va dove lo manda il sistema.</translation>
    </message>
</context>
<context>
    <name>BufferLatteVisualiser</name>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>BufferWindow</name>
    <message>
        <source>Stream Buffer</source>
        <translation>Buffer del flusso</translation>
    </message>
    <message>
        <source>No open channel has a stream buffer.</source>
        <translation>Nessun canale aperto ha un buffer del flusso.</translation>
    </message>
    <message>
        <source>Buffer of %1</source>
        <translation>Buffer di %1</translation>
    </message>
</context>
<context>
    <name>Channel</name>
    <message>
        <source>
Click here to reconnect</source>
        <translation>
Fai clic qui per riconnetterti</translation>
    </message>
</context>
<context>
    <name>ChannelEvents</name>
    <message>
        <source>The channel did not play in time.</source>
        <translation>Il canale non è partito in tempo.</translation>
    </message>
</context>
<context>
    <name>ChannelFeed</name>
    <message>
        <source>
Retrying...</source>
        <translation>
Nuovo tentativo...</translation>
    </message>
    <message>
        <source>Couldn&apos;t open channel file.</source>
        <translation>Impossibile aprire il file dei canali.</translation>
    </message>
    <message>
        <source>Error parsing channel file.</source>
        <translation>Il file dei canali contiene errori.</translation>
    </message>
</context>
<context>
    <name>ChannelListFilters</name>
    <message>
        <source>Show favourites only</source>
        <translation>Mostra solo i preferiti</translation>
    </message>
    <message>
        <source>Refresh the list</source>
        <translation>Aggiorna l&apos;elenco</translation>
    </message>
    <message>
        <source>Filter by title or language</source>
        <translation>Filtra per titolo o lingua</translation>
    </message>
    <message>
        <source>Kind of channels</source>
        <translation>Tipo di canali</translation>
    </message>
    <message>
        <source>Any</source>
        <translation>Tutti</translation>
    </message>
    <message>
        <source>Premium Partner</source>
        <translation>Partner premium</translation>
    </message>
    <message>
        <source>Free Partner</source>
        <translation>Partner gratuiti</translation>
    </message>
    <message>
        <source>Viewer Added</source>
        <translation>Degli spettatori</translation>
    </message>
</context>
<context>
    <name>ChannelListWidget</name>
    <message>
        <source>Channels</source>
        <translation>Canali</translation>
    </message>
    <message>
        <source>No channel fits your filters.</source>
        <translation>Nessun canale corrisponde ai filtri.</translation>
    </message>
    <message>
        <source>Show All Channels</source>
        <translation>Mostra tutti i canali</translation>
    </message>
    <message>
        <source>Sign in to see your channels.</source>
        <translation>Accedi per vedere i tuoi canali.</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Accedi</translation>
    </message>
    <message>
        <source>Loading channels...</source>
        <translation>Caricamento dei canali...</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>There are no channels on your list.</source>
        <translation>Il tuo elenco non contiene canali.</translation>
    </message>
    <message>
        <source>The channel has gone from the list.</source>
        <translation>Il canale non è più nell&apos;elenco.</translation>
    </message>
    <message>
        <source>For sale: click to purchase</source>
        <translation>In vendita: fai clic per acquistare</translation>
    </message>
    <message>
        <source>This channel cannot be watched now.</source>
        <translation>Ora questo canale non si può guardare.</translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation>Acquista</translation>
    </message>
    <message>
        <source>Breaking News Alerts</source>
        <translation>Avvisi di ultim&apos;ora</translation>
    </message>
    <message>
        <source>Delete from My Channels</source>
        <translation>Elimina dai miei canali</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Riproduci</translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation>Aggiungi alla multivista</translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation>Rimuovi dalla multivista</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>Add Stream</source>
        <translation>Aggiungi flusso</translation>
    </message>
    <message>
        <source>Remove Stream</source>
        <translation>Rimuovi flusso</translation>
    </message>
    <message>
        <source>Reset Streams</source>
        <translation>Ripristina i flussi</translation>
    </message>
    <message>
        <source>This address has a password in it: it is not kept as a favourite.</source>
        <translation>Questo indirizzo contiene una password: non viene salvato tra i preferiti.</translation>
    </message>
    <message>
        <source>Favourite</source>
        <translation>Preferito</translation>
    </message>
</context>
<context>
    <name>ChannelListWidgetModel</name>
    <message>
        <source>On</source>
        <translation>Attivi</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Disattivati</translation>
    </message>
    <message>
        <source>favourite</source>
        <translation>preferito</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Avvisi</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Nome del canale</translation>
    </message>
</context>
<context>
    <name>ChannelPanels</name>
    <message>
        <source>Signing in...</source>
        <translation>Accesso in corso...</translation>
    </message>
    <message numerus="yes">
        <source>Loading channels... %n so far</source>
        <translation>
            <numerusform>Caricamento dei canali... finora %n</numerusform>
            <numerusform>Caricamento dei canali... finora %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Impossibile aprire la pagina: %1</translation>
    </message>
    <message>
        <source>The list could not be refreshed: %1</source>
        <translation>Impossibile aggiornare l&apos;elenco: %1</translation>
    </message>
    <message>
        <source>Deleting %1...</source>
        <translation>Eliminazione di %1...</translation>
    </message>
    <message>
        <source>Sign in to change the list of your channels.</source>
        <translation>Accedi per modificare l&apos;elenco dei tuoi canali.</translation>
    </message>
    <message>
        <source>%1 was deleted.</source>
        <translation>%1 è stato eliminato.</translation>
    </message>
    <message>
        <source>The channel could not be deleted: %1</source>
        <translation>Impossibile eliminare il canale: %1</translation>
    </message>
    <message>
        <source>Sign in to add a channel.</source>
        <translation>Accedi per aggiungere un canale.</translation>
    </message>
    <message>
        <source>Adding the channel...</source>
        <translation>Aggiunta del canale...</translation>
    </message>
</context>
<context>
    <name>ChannelRowStates</name>
    <message>
        <source>Playing</source>
        <translation>In riproduzione</translation>
    </message>
    <message>
        <source>Previewing</source>
        <translation>In anteprima</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Aperto</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>In acquisizione</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Non riuscito</translation>
    </message>
</context>
<context>
    <name>ChannelSearchCombo</name>
    <message>
        <source>Enter your channel search</source>
        <translation>Scrivi qui il canale da cercare</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidget</name>
    <message>
        <source>Search</source>
        <translation>Cerca</translation>
    </message>
    <message>
        <source>Most Added</source>
        <translation>Più aggiunti</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mostra altri</translation>
    </message>
    <message>
        <source>Channels that were found</source>
        <translation>Canali trovati</translation>
    </message>
    <message>
        <source>Search on the web site</source>
        <translation>Cerca nel sito web</translation>
    </message>
    <message>
        <source>Sign in to search for channels.</source>
        <translation>Accedi per cercare canali.</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Accedi</translation>
    </message>
    <message>
        <source>Find the channels that other viewers have added.</source>
        <translation>Trova i canali aggiunti da altri spettatori.</translation>
    </message>
    <message>
        <source>The channel has no address that can be opened.</source>
        <translation>Il canale non ha un indirizzo che si possa aprire.</translation>
    </message>
    <message>
        <source>news</source>
        <translation>notizie</translation>
    </message>
    <message>
        <source>sport</source>
        <translation>sport</translation>
    </message>
    <message>
        <source>music</source>
        <translation>musica</translation>
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
        <translation>Ricerca di %1...</translation>
    </message>
    <message>
        <source>Searching for most popular...</source>
        <translation>Ricerca dei più popolari...</translation>
    </message>
    <message numerus="yes">
        <source>Search for %1 returned %n results</source>
        <translation>
            <numerusform>La ricerca di %1 ha dato %n risultato</numerusform>
            <numerusform>La ricerca di %1 ha dato %n risultati</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Search for most popular returned %n results</source>
        <translation>
            <numerusform>La ricerca dei più popolari ha dato %n risultato</numerusform>
            <numerusform>La ricerca dei più popolari ha dato %n risultati</numerusform>
        </translation>
    </message>
    <message>
        <source>No channel was found.</source>
        <translation>Nessun canale trovato.</translation>
    </message>
    <message>
        <source>The search failed: %1</source>
        <translation>Ricerca non riuscita: %1</translation>
    </message>
    <message>
        <source>The most popular channels could not be loaded: %1</source>
        <translation>Impossibile caricare i canali più popolari: %1</translation>
    </message>
    <message>
        <source>The channel could not be added: %1</source>
        <translation>Impossibile aggiungere il canale: %1</translation>
    </message>
    <message>
        <source>The channel could not be created: %1</source>
        <translation>Impossibile creare il canale: %1</translation>
    </message>
    <message>
        <source>The channel could not be removed: %1</source>
        <translation>Impossibile rimuovere il canale: %1</translation>
    </message>
    <message>
        <source>Adding %1...</source>
        <translation>Aggiunta di %1...</translation>
    </message>
    <message>
        <source>%1 was successfully added</source>
        <translation>%1 è stato aggiunto</translation>
    </message>
    <message>
        <source>Channel was removed</source>
        <translation>Il canale è stato rimosso</translation>
    </message>
    <message>
        <source>The service has not removed it.</source>
        <translation>Il servizio non l&apos;ha rimosso.</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Riproduci</translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation>Aggiungi alla multivista</translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation>Rimuovi dalla multivista</translation>
    </message>
    <message>
        <source>Save to My Channels</source>
        <translation>Salva nei miei canali</translation>
    </message>
    <message>
        <source>New Channel...</source>
        <translation>Nuovo canale...</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetItemDelegate</name>
    <message>
        <source>Saved</source>
        <translation>Salvato</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetModel</name>
    <message>
        <source>Saved</source>
        <translation>Salvato</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Valutazione</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Nome del canale</translation>
    </message>
</context>
<context>
    <name>ChannelStream</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation>Acquisizione del canale...
Attendi</translation>
    </message>
    <message>
        <source>Recording stopped: %1</source>
        <translation>Registrazione interrotta: %1</translation>
    </message>
    <message>
        <source>%1, a file</source>
        <translation>%1, un file</translation>
    </message>
    <message>
        <source>%1, live, through a buffer</source>
        <translation>%1, in diretta, tramite buffer</translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation>%1, in diretta</translation>
    </message>
    <message>
        <source>a file on this computer</source>
        <translation>un file su questo computer</translation>
    </message>
</context>
<context>
    <name>ChannelTitle</name>
    <message>
        <source>Unnamed channel</source>
        <translation>Canale senza nome</translation>
    </message>
</context>
<context>
    <name>ChannelView</name>
    <message>
        <source>Sort by</source>
        <translation>Ordina per</translation>
    </message>
</context>
<context>
    <name>ChatColours</name>
    <message>
        <source>Room Name</source>
        <translation>Nome stanza</translation>
    </message>
    <message>
        <source>Your Alias</source>
        <translation>Il tuo alias</translation>
    </message>
    <message>
        <source>Other Alias</source>
        <translation>Alias altrui</translation>
    </message>
    <message>
        <source>Ignored Alias</source>
        <translation>Alias ignorato</translation>
    </message>
    <message>
        <source>Admin Alias</source>
        <translation>Alias admin</translation>
    </message>
    <message>
        <source>Bot Alias</source>
        <translation>Alias bot</translation>
    </message>
    <message>
        <source>Timestamp</source>
        <translation>Ora</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Azione</translation>
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
        <translation>Testo</translation>
    </message>
    <message>
        <source>&amp;Size of the text:</source>
        <translation>Dimensione del &amp;testo:</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Colori</translation>
    </message>
    <message>
        <source>Sample of a chat</source>
        <translation>Esempio di chat</translation>
    </message>
    <message>
        <source>Good evening!</source>
        <translation>Buonasera!</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Finestra</translation>
    </message>
    <message>
        <source>Skin</source>
        <translation>Cornice propria</translation>
    </message>
</context>
<context>
    <name>ColourButton</name>
    <message>
        <source>%1: colour %2</source>
        <translation>%1: colore %2</translation>
    </message>
</context>
<context>
    <name>ConnectionTest</name>
    <message>
        <source>This computer finds no way to %1. Is it connected to a network?</source>
        <translation>Da questo computer non si raggiunge %1. È collegato a una rete?</translation>
    </message>
    <message>
        <source>This computer finds no way to the proxy %1. Is its name right?</source>
        <translation>Da questo computer non si raggiunge il proxy %1. Il nome è corretto?</translation>
    </message>
    <message>
        <source>Something on the way answers in place of %1: it can&apos;t be reached from there.</source>
        <translation>Qualcosa lungo il percorso risponde al posto di %1, che da lì non si raggiunge.</translation>
    </message>
    <message>
        <source>The network answers with a page of %1. Perhaps it wants you to sign in there first.</source>
        <translation>La rete risponde con una pagina di %1. Forse occorre prima accedere da lì.</translation>
    </message>
    <message>
        <source>%1 answered within %2 ms.</source>
        <translation>%1 ha risposto in %2 ms.</translation>
    </message>
    <message>
        <source>%1 accepts no connection.</source>
        <translation>%1 non accetta connessioni.</translation>
    </message>
    <message>
        <source>There is no machine called %1.</source>
        <translation>Nessun computer si chiama %1.</translation>
    </message>
    <message numerus="yes">
        <source>%1 did not answer within %n second(s).</source>
        <translation>
            <numerusform>%1 non ha risposto entro %n secondo.</numerusform>
            <numerusform>%1 non ha risposto entro %n secondi.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 could not prove who it is: its certificate is not valid.</source>
        <translation>%1 non ha potuto dimostrare la propria identità: il certificato non è valido.</translation>
    </message>
    <message>
        <source>The proxy %1 accepts no connection. Is the port right?</source>
        <translation>Il proxy %1 non accetta connessioni. La porta è corretta?</translation>
    </message>
    <message>
        <source>There is no proxy called %1.</source>
        <translation>Nessun proxy si chiama %1.</translation>
    </message>
    <message>
        <source>The proxy %1 did not answer in time.</source>
        <translation>Il proxy %1 non ha risposto in tempo.</translation>
    </message>
    <message>
        <source>The proxy %1 wants a user name and a password, or does not accept these.</source>
        <translation>Il proxy %1 richiede nome utente e password, oppure non accetta questi.</translation>
    </message>
    <message>
        <source>%1 could not be reached: %2</source>
        <translation>Impossibile raggiungere %1: %2</translation>
    </message>
</context>
<context>
    <name>DeleteChannelDialog</name>
    <message>
        <source>Delete Channel</source>
        <translation>Elimina il canale</translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel &lt;b&gt;%1&lt;/b&gt; from My Channels?&lt;br&gt;&lt;br&gt;</source>
        <translation>Vuoi davvero eliminare il canale &lt;b&gt;%1&lt;/b&gt; dai tuoi canali?&lt;br&gt;&lt;br&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Note:&lt;/b&gt; To restore a partner channel that you have deleted &lt;a href=&quot;manage&quot;&gt;click here&lt;/a&gt;.</source>
        <translation>&lt;b&gt;Nota:&lt;/b&gt; per ripristinare un canale partner eliminato &lt;a href=&quot;manage&quot;&gt;fai clic qui&lt;/a&gt;.</translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel %1 from My Channels?</source>
        <translation>Vuoi davvero eliminare il canale %1 dai tuoi canali?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>EffectEditor</name>
    <message>
        <source>Line numbers</source>
        <translation>Numeri di riga</translation>
    </message>
</context>
<context>
    <name>EffectNames</name>
    <message>
        <source>An effect needs a name.</source>
        <translation>Un effetto deve avere un nome.</translation>
    </message>
    <message>
        <source>This name is too long.</source>
        <translation>Questo nome è troppo lungo.</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Nitidezza</translation>
    </message>
    <message>
        <source>Black and White</source>
        <translation>Bianco e nero</translation>
    </message>
    <message>
        <source>Film Grain</source>
        <translation>Grana della pellicola</translation>
    </message>
    <message>
        <source>Scan Lines</source>
        <translation>Linee di scansione</translation>
    </message>
</context>
<context>
    <name>EffectTrial</name>
    <message>
        <source>The graphics driver does not compile this effect.</source>
        <translation>Il driver grafico non compila questo effetto.</translation>
    </message>
    <message>
        <source>The graphics driver takes too long to compile this effect. It was switched off.</source>
        <translation>Il driver grafico impiega troppo tempo a compilare questo effetto. È stato disattivato.</translation>
    </message>
    <message>
        <source>One picture would take about %1 ms with this effect. That is too long to play: it was switched off.</source>
        <translation>Con questo effetto un&apos;immagine richiederebbe circa %1 ms. È troppo per la riproduzione: è stato disattivato.</translation>
    </message>
    <message>
        <source>A picture is never finished with this effect. It was switched off.</source>
        <translation>Con questo effetto un&apos;immagine non viene mai completata. È stato disattivato.</translation>
    </message>
    <message>
        <source>The graphics driver fails with this effect. It was switched off.</source>
        <translation>Il driver grafico non riesce a usare questo effetto. È stato disattivato.</translation>
    </message>
    <message>
        <source>This effect could not be tried, so it is not shown.</source>
        <translation>Non è stato possibile provare questo effetto, perciò non viene mostrato.</translation>
    </message>
</context>
<context>
    <name>EffectsDialog</name>
    <message>
        <source>Effects</source>
        <translation>Effetti</translation>
    </message>
    <message>
        <source>&amp;Show effects on the picture</source>
        <translation>&amp;Mostra gli effetti sull&apos;immagine</translation>
    </message>
    <message>
        <source>Effects and their source</source>
        <translation>Effetti e relativi sorgenti</translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation>&amp;Ripristina</translation>
    </message>
    <message>
        <source>The source as it was before you changed it</source>
        <translation>Il sorgente com&apos;era prima delle tue modifiche</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Source of the effect</source>
        <translation>Sorgente dell&apos;effetto</translation>
    </message>
    <message>
        <source>Comes with the program. Duplicate it to make your own of it.</source>
        <translation>Fa parte del programma. Duplicalo per farne uno tuo.</translation>
    </message>
    <message>
        <source>What you type is kept, and shown while the effect is on.</source>
        <translation>Ciò che scrivi viene salvato e mostrato mentre l&apos;effetto è attivo.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Riga %1: %2</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messaggi</translation>
    </message>
    <message>
        <source>New effect</source>
        <translation>Nuovo effetto</translation>
    </message>
    <message>
        <source>&amp;Name of the effect:</source>
        <translation>&amp;Nome dell&apos;effetto:</translation>
    </message>
    <message>
        <source>Delete the effect &quot;%1&quot;? It can&apos;t be brought back.</source>
        <translation>Eliminare l&apos;effetto «%1»? Non sarà possibile recuperarlo.</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Elimina</translation>
    </message>
</context>
<context>
    <name>EffectsLibrary</name>
    <message>
        <source>There is an effect called &quot;%1&quot; already.</source>
        <translation>Esiste già un effetto chiamato «%1».</translation>
    </message>
    <message>
        <source>The effects are still being read.</source>
        <translation>Gli effetti sono ancora in fase di lettura.</translation>
    </message>
    <message numerus="yes">
        <source>There can be %n effect(s) at most.</source>
        <translation>
            <numerusform>Può esserci al massimo %n effetto.</numerusform>
            <numerusform>Possono esserci al massimo %n effetti.</numerusform>
        </translation>
    </message>
    <message>
        <source>This effect is too long.</source>
        <translation>Questo effetto è troppo lungo.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be renamed.</source>
        <translation>Questo effetto non si può rinominare.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be deleted.</source>
        <translation>Questo effetto non si può eliminare.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be changed.</source>
        <translation>Questo effetto non si può modificare.</translation>
    </message>
</context>
<context>
    <name>EffectsList</name>
    <message>
        <source>New</source>
        <translation>Nuovo</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplica</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Earlier</source>
        <translation>Prima</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Dopo</translation>
    </message>
    <message>
        <source>Effects, in the order in which they are applied</source>
        <translation>Effetti, nell&apos;ordine di applicazione</translation>
    </message>
</context>
<context>
    <name>EffectsStore</name>
    <message>
        <source>There are too many effects in %1.</source>
        <translation>Ci sono troppi effetti in %1.</translation>
    </message>
    <message>
        <source>The file %1 is not named as effects are.</source>
        <translation>Il nome del file %1 non è quello di un effetto.</translation>
    </message>
    <message>
        <source>The effect in %1 can&apos;t be read.</source>
        <translation>Impossibile leggere l&apos;effetto in %1.</translation>
    </message>
    <message>
        <source>The order of the effects in %1 can&apos;t be read.</source>
        <translation>Impossibile leggere l&apos;ordine degli effetti in %1.</translation>
    </message>
    <message>
        <source>The program ended while this effect was being tried. It was switched off.</source>
        <translation>Il programma è terminato durante la prova di questo effetto. È stato disattivato.</translation>
    </message>
    <message>
        <source>The program ended while the effect &quot;%1&quot; was being tried. It was switched off.</source>
        <translation>Il programma è terminato durante la prova dell&apos;effetto «%1». È stato disattivato.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossibile scrivere %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed.</source>
        <translation>Impossibile rimuovere %1.</translation>
    </message>
</context>
<context>
    <name>FileChannels</name>
    <message>
        <source>Media files (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;All files (*)</source>
        <translation>File multimediali (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;Tutti i file (*)</translation>
    </message>
    <message>
        <source>Open Video File</source>
        <translation>Apri un file video</translation>
    </message>
    <message>
        <source>Open Video Files</source>
        <translation>Apri più file video</translation>
    </message>
    <message>
        <source>Add Video Files</source>
        <translation>Aggiungi file video</translation>
    </message>
</context>
<context>
    <name>GLCarouselBar</name>
    <message>
        <source>Channel carousel</source>
        <translation>Carosello dei canali</translation>
    </message>
    <message>
        <source>The channel to the left</source>
        <translation>Il canale a sinistra</translation>
    </message>
    <message>
        <source>Play this channel</source>
        <translation>Riproduci questo canale</translation>
    </message>
    <message>
        <source>Show this channel beside the others</source>
        <translation>Mostra questo canale accanto agli altri</translation>
    </message>
    <message>
        <source>The channel to the right</source>
        <translation>Il canale a destra</translation>
    </message>
</context>
<context>
    <name>GLChannelBar</name>
    <message>
        <source>Playback</source>
        <translation>Riproduzione</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posizione</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Channel logo</source>
        <translation>Logo del canale</translation>
    </message>
    <message>
        <source>Previous channel (Page Up)</source>
        <translation>Canale precedente (Pag↑)</translation>
    </message>
    <message>
        <source>Next channel (Page Down)</source>
        <translation>Canale successivo (Pag↓)</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Registra</translation>
    </message>
    <message>
        <source>Take a screenshot</source>
        <translation>Cattura una schermata</translation>
    </message>
    <message>
        <source>Channel carousel</source>
        <translation>Carosello dei canali</translation>
    </message>
    <message>
        <source>Show only this channel</source>
        <translation>Mostra solo questo canale</translation>
    </message>
    <message>
        <source>Show another channel beside this one</source>
        <translation>Mostra un altro canale accanto a questo</translation>
    </message>
    <message>
        <source>Leave full screen (Escape)</source>
        <translation>Esci da schermo intero (Esc)</translation>
    </message>
    <message>
        <source>Full screen (Ctrl+F)</source>
        <translation>Schermo intero (Ctrl+F)</translation>
    </message>
    <message>
        <source>Sound on (Ctrl+M)</source>
        <translation>Attiva l&apos;audio (Ctrl+M)</translation>
    </message>
    <message>
        <source>Mute (Ctrl+M)</source>
        <translation>Muto (Ctrl+M)</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Ferma la registrazione</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Riproduci (Spazio)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pausa (Spazio)</translation>
    </message>
</context>
<context>
    <name>GLIndicatorBar</name>
    <message>
        <source>Messages</source>
        <translation>Messaggi</translation>
    </message>
    <message numerus="yes">
        <source>%n new chat message(s)</source>
        <translation>
            <numerusform>%n nuovo messaggio di chat</numerusform>
            <numerusform>%n nuovi messaggi di chat</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new alert(s)</source>
        <translation>
            <numerusform>%n nuovo avviso</numerusform>
            <numerusform>%n nuovi avvisi</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLMovie</name>
    <message>
        <source>Could not locate a video decoder. Cannot play</source>
        <translation>Nessun decodificatore video trovato. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>Could not open video codec. Cannot play</source>
        <translation>Impossibile aprire il codec video. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>No audio device present.</source>
        <translation>Nessun dispositivo audio presente.</translation>
    </message>
    <message>
        <source>Could not locate an audio decoder. Cannot play</source>
        <translation>Nessun decodificatore audio trovato. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>Could not open audio codec. Cannot play</source>
        <translation>Impossibile aprire il codec audio. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>No video or audio streams found. Cannot play</source>
        <translation>Nessun flusso video o audio trovato. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>The audio format is not supported. Cannot play</source>
        <translation>Il formato audio non è supportato. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>Could not open sound device.</source>
        <translation>Impossibile aprire il dispositivo audio.</translation>
    </message>
    <message>
        <source>Failed creating movie texture. Cannot play</source>
        <translation>Creazione della texture non riuscita. Riproduzione impossibile</translation>
    </message>
    <message>
        <source>Not enough memory to play. Cannot play</source>
        <translation>Memoria insufficiente. Riproduzione impossibile</translation>
    </message>
</context>
<context>
    <name>GLOverlay</name>
    <message>
        <source>Picture</source>
        <translation>Immagine</translation>
    </message>
    <message>
        <source>Viewpoint</source>
        <translation>Punto di vista</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Muto</translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation>Volume %1 %</translation>
    </message>
    <message>
        <source>Sign in to watch the channels of your account</source>
        <translation>Accedi per guardare i canali del tuo account</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 e %n altro</numerusform>
            <numerusform>%1 e altri %n</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (Ctrl and click: close)</source>
        <translation>%1 (Ctrl e clic: chiudi)</translation>
    </message>
    <message>
        <source>%1 (click: sound; Ctrl and click: close)</source>
        <translation>%1 (clic: audio; Ctrl e clic: chiudi)</translation>
    </message>
    <message>
        <source>Choose a channel, or drop a file or an address here</source>
        <translation>Scegli un canale o trascina qui un file o un indirizzo</translation>
    </message>
</context>
<context>
    <name>GLProgressIndicator</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>Buffer %1 %</source>
        <translation>Buffer %1 %</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>In diretta</translation>
    </message>
</context>
<context>
    <name>GLTitleBar</name>
    <message>
        <source>What plays</source>
        <translation>In riproduzione</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Accedi</translation>
    </message>
    <message>
        <source>Hide the channels beside the picture</source>
        <translation>Nascondi i canali accanto all&apos;immagine</translation>
    </message>
    <message>
        <source>Show the channels beside the picture</source>
        <translation>Mostra i canali accanto all&apos;immagine</translation>
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
        <translation>Immagine</translation>
    </message>
    <message>
        <source>What plays; Tab goes to its controls</source>
        <translation>Ciò che è in riproduzione; Tab porta ai controlli</translation>
    </message>
    <message>
        <source>There are no channels yet</source>
        <translation>Non ci sono ancora canali</translation>
    </message>
    <message>
        <source>The page could not be loaded</source>
        <translation>Impossibile caricare la pagina</translation>
    </message>
    <message>
        <source>Loading... %1 %</source>
        <translation>Caricamento... %1 %</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Start</source>
        <translation>Avvio</translation>
    </message>
    <message>
        <source>&amp;First, play:</source>
        <translation>A&amp;ll&apos;avvio riproduci:</translation>
    </message>
    <message>
        <source>what played last</source>
        <translation>gli ultimi canali visti</translation>
    </message>
    <message>
        <source>the first channel</source>
        <translation>il primo canale</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>niente</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Finestra</translation>
    </message>
    <message>
        <source>&amp;Always on top of other windows</source>
        <translation>&amp;Sempre in primo piano sulle altre finestre</translation>
    </message>
    <message>
        <source>Show the &amp;menu bar</source>
        <translation>Mostra la barra dei &amp;menu</translation>
    </message>
    <message>
        <source>Show the &amp;channel bar while the pointer is over the picture</source>
        <translation>Mostra la barra del &amp;canale quando il puntatore è sull&apos;immagine</translation>
    </message>
    <message>
        <source>Show &amp;tips over the picture</source>
        <translation>Mostra i suggerimen&amp;ti sull&apos;immagine</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Schermate</translation>
    </message>
    <message>
        <source>Directory of screenshots</source>
        <translation>Cartella delle schermate</translation>
    </message>
    <message>
        <source>Save them &amp;in:</source>
        <translation>Salva &amp;in:</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>Li&amp;ngua:</translation>
    </message>
    <message>
        <source>The language changes at the next start of Ombravision.</source>
        <translation>La lingua cambia al prossimo avvio di Ombravision.</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>Sce&amp;gli...</translation>
    </message>
    <message>
        <source>Where the desktop keeps a list of its own of what starts with it, add &quot;ombravision -startup&quot; there.</source>
        <translation>Se il desktop ha un proprio elenco dei programmi da avviare, aggiungi lì «ombravision -startup».</translation>
    </message>
</context>
<context>
    <name>HttpFileDataSource</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation>Acquisizione del canale...
Attendi</translation>
    </message>
    <message>
        <source>The file is too long to be kept in memory</source>
        <translation>Il file è troppo lungo per essere tenuto in memoria</translation>
    </message>
    <message>
        <source>Failed to open %1</source>
        <translation>Impossibile aprire %1</translation>
    </message>
</context>
<context>
    <name>HttpFileDownloader</name>
    <message>
        <source>The address cannot be downloaded from.</source>
        <translation>Da questo indirizzo non si può scaricare.</translation>
    </message>
    <message>
        <source>The connection failed (%1).</source>
        <translation>Connessione non riuscita (%1).</translation>
    </message>
    <message>
        <source>The server answered %1 %2.</source>
        <translation>Il server ha risposto %1 %2.</translation>
    </message>
    <message>
        <source>The server leads to another place that cannot be used.</source>
        <translation>Il server rimanda a un altro indirizzo che non si può usare.</translation>
    </message>
</context>
<context>
    <name>InviteDialog</name>
    <message>
        <source>Invite a Friend</source>
        <translation>Invita un amico</translation>
    </message>
    <message>
        <source>&amp;Your letter:</source>
        <translation>&amp;Il tuo messaggio:</translation>
    </message>
    <message>
        <source>Hello,

I watch live television with Ombravision, and thought you might like it, too. You can get it here:

%1

See you there!
</source>
        <translation>Ciao,

guardo la televisione in diretta con Ombravision e ho pensato che potrebbe piacere anche a te. Si trova qui:

%1

A presto!
</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>Co&amp;pia</translation>
    </message>
    <message>
        <source>&amp;Write a mail</source>
        <translation>&amp;Scrivi un&apos;e-mail</translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
    <message>
        <source>No program for mails could be opened. Copy the letter instead.</source>
        <translation>Impossibile aprire un programma di posta. Copia invece la lettera.</translation>
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
        <translation>Esce da schermo intero, chiude un dialogo</translation>
    </message>
    <message>
        <source>1 to 9</source>
        <translation>Da 1 a 9</translation>
    </message>
    <message>
        <source>Choose one of the open channels</source>
        <translation>Sceglie uno dei canali aperti</translation>
    </message>
    <message>
        <source>Page up, Page down</source>
        <translation>Pag↑, Pag↓</translation>
    </message>
    <message>
        <source>Previous and next channel</source>
        <translation>Canale precedente e successivo</translation>
    </message>
    <message>
        <source>Ctrl with a click</source>
        <translation>Ctrl con un clic</translation>
    </message>
    <message>
        <source>Open a channel beside the others, or close it</source>
        <translation>Apre un canale accanto agli altri o lo chiude</translation>
    </message>
    <message>
        <source>Double click</source>
        <translation>Doppio clic</translation>
    </message>
    <message>
        <source>Full screen on and off</source>
        <translation>Attiva/disattiva schermo intero</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Rotellina</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Invio</translation>
    </message>
    <message>
        <source>In &quot;Open Video Stream&quot;: open it beside what plays</source>
        <translation>In «Apri un flusso video»: lo apre accanto a ciò che è in riproduzione</translation>
    </message>
    <message>
        <source>Alt with a letter</source>
        <translation>Alt con una lettera</translation>
    </message>
    <message>
        <source>What has that letter underlined</source>
        <translation>La voce in cui quella lettera è sottolineata</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasti</translation>
    </message>
    <message>
        <source>Keys and what they do</source>
        <translation>Tasti e relative funzioni</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Tasto</translation>
    </message>
    <message>
        <source>What it does</source>
        <translation>Funzione</translation>
    </message>
    <message>
        <source>Tab, arrows</source>
        <translation>Tab, frecce</translation>
    </message>
    <message>
        <source>Over the picture: go through the controls</source>
        <translation>Sull&apos;immagine: scorrere i comandi</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Invio</translation>
    </message>
    <message>
        <source>In the list: play the channel</source>
        <translation>Nell&apos;elenco: riprodurre il canale</translation>
    </message>
    <message>
        <source>In the list: open the channel beside the others</source>
        <translation>Nell&apos;elenco: aprire il canale accanto agli altri</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Spazio</translation>
    </message>
    <message>
        <source>In the list: a look at the channel, and back</source>
        <translation>Nell&apos;elenco: anteprima del canale, e ritorno</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>In the list: favourite or not</source>
        <translation>Nell&apos;elenco: preferito o no</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Canc</translation>
    </message>
    <message>
        <source>In the list: delete the channel</source>
        <translation>Nell&apos;elenco: eliminare il canale</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>Lettere</translation>
    </message>
    <message>
        <source>In the list: filter or search</source>
        <translation>Nell&apos;elenco: filtrare o cercare</translation>
    </message>
    <message>
        <source>Left, Right, Return</source>
        <translation>Sinistra, Destra, Invio</translation>
    </message>
    <message>
        <source>In the carousel: turn it, choose what is in front</source>
        <translation>Nel carosello: girarlo, scegliere il canale in primo piano</translation>
    </message>
    <message>
        <source>Space, P</source>
        <translation>Spazio, P</translation>
    </message>
    <message>
        <source>Over the picture: pause and go on</source>
        <translation>Sull&apos;immagine: mettere in pausa e riprendere</translation>
    </message>
    <message>
        <source>Menu, Shift+F10</source>
        <translation>Menu, Maiusc+F10</translation>
    </message>
    <message>
        <source>The menu of what is chosen</source>
        <translation>Il menu di ciò che è scelto</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Sign In</source>
        <translation>Accedi</translation>
    </message>
    <message>
        <source>Sign &amp;In</source>
        <translation>A&amp;ccedi</translation>
    </message>
    <message>
        <source>&amp;Keep me signed in</source>
        <translation>&amp;Ricorda l&apos;accesso</translation>
    </message>
    <message>
        <source>I have no account yet: &amp;create one...</source>
        <translation>Non hai un account? Crea&amp;ne uno...</translation>
    </message>
</context>
<context>
    <name>LoginManager</name>
    <message>
        <source>The service does not accept this e-mail address and password.</source>
        <translation>Il servizio non accetta questo indirizzo e-mail e questa password.</translation>
    </message>
    <message>
        <source>You must install the critical update</source>
        <translation>Devi installare l&apos;aggiornamento critico</translation>
    </message>
    <message>
        <source>Your password could not be stored. You will be asked for it at the next start.</source>
        <translation>Impossibile salvare la password. Ti verrà chiesta al prossimo avvio.</translation>
    </message>
    <message>
        <source>Signing in...</source>
        <translation>Accesso in corso...</translation>
    </message>
    <message>
        <source>Creating the account...</source>
        <translation>Creazione dell&apos;account...</translation>
    </message>
</context>
<context>
    <name>MenuActions</name>
    <message>
        <source>Record</source>
        <translation>Registra</translation>
    </message>
    <message>
        <source>Video Post Processing</source>
        <translation>Post-elaborazione video</translation>
    </message>
    <message>
        <source>Edit Video Post Processing</source>
        <translation>Modifica post-elaborazione video</translation>
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
        <translation>Personalizzata</translation>
    </message>
    <message>
        <source>Half Size</source>
        <translation>Metà dimensione</translation>
    </message>
    <message>
        <source>Normal Size</source>
        <translation>Dimensione reale</translation>
    </message>
    <message>
        <source>Double Size</source>
        <translation>Doppia dimensione</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Adatta deformando</translation>
    </message>
    <message>
        <source>Touch Inside</source>
        <translation>Adatta all&apos;interno</translation>
    </message>
    <message>
        <source>Touch Outside</source>
        <translation>Riempi</translation>
    </message>
    <message>
        <source>Channel Carousel</source>
        <translation>Carosello dei canali</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Schermo intero</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Muto</translation>
    </message>
    <message>
        <source>Test Channels</source>
        <translation>Prova i canali</translation>
    </message>
    <message>
        <source>Run at Startup</source>
        <translation>Avvia all&apos;accesso</translation>
    </message>
    <message>
        <source>Increase Volume</source>
        <translation>Alza il volume</translation>
    </message>
    <message>
        <source>Decrease Volume</source>
        <translation>Abbassa il volume</translation>
    </message>
    <message>
        <source>Reset Speed</source>
        <translation>Velocità normale</translation>
    </message>
    <message>
        <source>Increase Speed</source>
        <translation>Aumenta la velocità</translation>
    </message>
    <message>
        <source>Decrease Speed</source>
        <translation>Riduci la velocità</translation>
    </message>
    <message>
        <source>Seek Forwards</source>
        <translation>Avanti</translation>
    </message>
    <message>
        <source>Seek backwards</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation>Barra dei menu</translation>
    </message>
    <message>
        <source>Tabs</source>
        <translation>Schede</translation>
    </message>
    <message>
        <source>Show Chat</source>
        <translation>Mostra la chat</translation>
    </message>
    <message>
        <source>Skin Mode</source>
        <translation>Cornice propria</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Sempre in primo piano</translation>
    </message>
    <message>
        <source>&amp;Open Video File</source>
        <translation>&amp;Apri un file video</translation>
    </message>
    <message>
        <source>&amp;Open Video Files</source>
        <translation>Apri più file &amp;video</translation>
    </message>
    <message>
        <source>&amp;Add Video Files</source>
        <translation>A&amp;ggiungi file video</translation>
    </message>
    <message>
        <source>&amp;Open Video Stream</source>
        <translation>Apri un &amp;flusso video</translation>
    </message>
    <message>
        <source>&amp;Open Latte Stream</source>
        <translation>Apri un flusso &amp;Latte</translation>
    </message>
    <message>
        <source>&amp;Add Latte Stream</source>
        <translation>Aggi&amp;ungi un flusso Latte</translation>
    </message>
    <message>
        <source>&amp;Add/Remove channels</source>
        <translation>&amp;Aggiungi/rimuovi canali</translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation>&amp;Riduci a icona</translation>
    </message>
    <message>
        <source>&amp;Sign In</source>
        <translation>A&amp;ccedi</translation>
    </message>
    <message>
        <source>&amp;Sign Out</source>
        <translation>&amp;Esci dall&apos;account</translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>Crea un acc&amp;ount</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>E&amp;sci</translation>
    </message>
    <message>
        <source>&amp;About Ombravision</source>
        <translation>&amp;Informazioni su Ombravision</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>&amp;Tutorial</source>
        <translation>In&amp;troduzione</translation>
    </message>
    <message>
        <source>&amp;Support</source>
        <translation>A&amp;ssistenza</translation>
    </message>
    <message>
        <source>&amp;Feedback</source>
        <translation>&amp;Commenti</translation>
    </message>
    <message>
        <source>&amp;Buy Ombravision Pro</source>
        <translation>Ac&amp;quista Ombravision Pro</translation>
    </message>
    <message>
        <source>&amp;Invite Friend</source>
        <translation>I&amp;nvita un amico</translation>
    </message>
    <message>
        <source>Send Support Information</source>
        <translation>Invia informazioni all&apos;assistenza</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Preferenze</translation>
    </message>
    <message>
        <source>&amp;Show Window</source>
        <translation>&amp;Mostra la finestra</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Chiudi la finestra</translation>
    </message>
</context>
<context>
    <name>MyChannels</name>
    <message>
        <source>The service has not removed it.</source>
        <translation>Il servizio non l&apos;ha rimosso.</translation>
    </message>
</context>
<context>
    <name>NetworkErrors</name>
    <message>
        <source>No error</source>
        <translation>Nessun errore</translation>
    </message>
    <message>
        <source>There was a general error</source>
        <translation>Si è verificato un errore generico</translation>
    </message>
    <message>
        <source>End of stream encountered</source>
        <translation>Raggiunta la fine del flusso</translation>
    </message>
    <message>
        <source>Could not resolve resource</source>
        <translation>Impossibile risolvere la risorsa</translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation>Impossibile connettersi al server</translation>
    </message>
    <message>
        <source>Stream unavailable</source>
        <translation>Flusso non disponibile</translation>
    </message>
    <message>
        <source>Resource not available</source>
        <translation>Risorsa non disponibile</translation>
    </message>
    <message>
        <source>A remote server closed the connection</source>
        <translation>Un server remoto ha chiuso la connessione</translation>
    </message>
    <message>
        <source>Authentication required</source>
        <translation>Autenticazione richiesta</translation>
    </message>
    <message>
        <source>Proxy authentication required</source>
        <translation>Autenticazione al proxy richiesta</translation>
    </message>
    <message>
        <source>The operation unexpectedly succeeded</source>
        <translation>L&apos;operazione è riuscita inaspettatamente</translation>
    </message>
    <message>
        <source>The operation was unexpectedly redirected</source>
        <translation>L&apos;operazione è stata reindirizzata inaspettatamente</translation>
    </message>
    <message>
        <source>There was an unexpected client error</source>
        <translation>Si è verificato un errore imprevisto del client</translation>
    </message>
    <message>
        <source>There was an unexpected server error</source>
        <translation>Si è verificato un errore imprevisto del server</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Errore sconosciuto</translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted</source>
        <translation>Il certificato del server non è attendibile</translation>
    </message>
    <message>
        <source>The server sends nothing that can be played</source>
        <translation>Il server non invia nulla di riproducibile</translation>
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
        <translation>&amp;Tipo:</translation>
    </message>
    <message>
        <source>none</source>
        <translation>nessuno</translation>
    </message>
    <message>
        <source>as the system says</source>
        <translation>quello del sistema</translation>
    </message>
    <message>
        <source>HTTP</source>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>HTTP, for web pages only</source>
        <translation>HTTP, solo per pagine web</translation>
    </message>
    <message>
        <source>SOCKS 5</source>
        <translation>SOCKS 5</translation>
    </message>
    <message>
        <source>another (%1)</source>
        <translation>un altro (%1)</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>&amp;Host:</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Porta:</translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation>&amp;Utente:</translation>
    </message>
    <message>
        <source>Pass&amp;word:</source>
        <translation>Pass&amp;word:</translation>
    </message>
    <message>
        <source>&amp;Test the connection</source>
        <translation>Pro&amp;va la connessione</translation>
    </message>
    <message>
        <source>The test was ended.</source>
        <translation>La prova è stata interrotta.</translation>
    </message>
    <message>
        <source>End the &amp;test</source>
        <translation>Termina la pro&amp;va</translation>
    </message>
    <message>
        <source>Cache of channels and logos</source>
        <translation>Cache di canali e loghi</translation>
    </message>
    <message>
        <source>&amp;Limit:</source>
        <translation>&amp;Limite:</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> MiB</translation>
    </message>
    <message>
        <source>&amp;Empty the cache</source>
        <translation>&amp;Svuota la cache</translation>
    </message>
    <message>
        <source>The cache is empty.</source>
        <translation>La cache è vuota.</translation>
    </message>
    <message>
        <source>Some files could not be removed; %1 are left.</source>
        <translation>Impossibile rimuovere alcuni file; restano %1.</translation>
    </message>
    <message>
        <source>Asking the service...</source>
        <translation>Richiesta al servizio...</translation>
    </message>
    <message>
        <source>Removing...</source>
        <translation>Rimozione...</translation>
    </message>
</context>
<context>
    <name>NewChannelDialog</name>
    <message>
        <source>New Channel</source>
        <translation>Nuovo canale</translation>
    </message>
    <message>
        <source>Television</source>
        <translation>Televisione</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nome:</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Indirizzo:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Tipo:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>&amp;Descrizione:</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Crea</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>This is no address of the network: it begins with mms://, rtsp://, http:// or the like.</source>
        <translation>Non è un indirizzo di rete: deve iniziare con mms://, rtsp://, http:// o simili.</translation>
    </message>
    <message>
        <source>Other viewers can find the channel, too.</source>
        <translation>Anche altri spettatori possono trovare il canale.</translation>
    </message>
</context>
<context>
    <name>OpenStreamDialog</name>
    <message>
        <source>Open Video Stream</source>
        <translation>Apri un flusso video</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Indirizzo</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Indirizzo:</translation>
    </message>
    <message>
        <source>&amp;Forget all</source>
        <translation>&amp;Dimentica tutti</translation>
    </message>
    <message>
        <source>Forget the addresses that were opened before</source>
        <translation>Dimentica gli indirizzi aperti in precedenza</translation>
    </message>
    <message>
        <source>Open &amp;beside</source>
        <translation>Apri a&amp;ccanto</translation>
    </message>
    <message>
        <source>Beside what plays (Ctrl+Return)</source>
        <translation>Accanto a ciò che è in riproduzione (Ctrl+Invio)</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>A&amp;pri</translation>
    </message>
    <message>
        <source>What the address is</source>
        <translation>Contenuto dell&apos;indirizzo</translation>
    </message>
</context>
<context>
    <name>PanelNotice</name>
    <message>
        <source>Progress</source>
        <translation>Avanzamento</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Preferenze</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pagine</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Generale</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Rete</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Avvisi</translation>
    </message>
    <message>
        <source>Chat</source>
        <translation>Chat</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>Pre&amp;definiti</translation>
    </message>
    <message>
        <source>This page as in a new installation</source>
        <translation>Questa pagina come in una nuova installazione</translation>
    </message>
    <message>
        <source>You are not signed in. Each account keeps some of this for itself.</source>
        <translation>Non hai effettuato l&apos;accesso. Ogni account conserva alcune di queste impostazioni per sé.</translation>
    </message>
</context>
<context>
    <name>PreferencesPage</name>
    <message>
        <source>Result</source>
        <translation>Risultato</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>streams of this kind cannot be recorded</source>
        <translation>i flussi di questo tipo non si possono registrare</translation>
    </message>
    <message>
        <source>the disk is too slow</source>
        <translation>il disco è troppo lento</translation>
    </message>
    <message>
        <source>%1 cannot be made</source>
        <translation>impossibile creare %1</translation>
    </message>
</context>
<context>
    <name>RestfulChannelDescriptionProvider</name>
    <message>
        <source>Error parsing channels
Retrying...</source>
        <translation>Errore nell&apos;analisi dei canali
Nuovo tentativo...</translation>
    </message>
</context>
<context>
    <name>SignupDialog</name>
    <message>
        <source>Create Account</source>
        <translation>Crea un account</translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>Crea un acc&amp;ount</translation>
    </message>
    <message>
        <source>Password &amp;again:</source>
        <translation>&amp;Ripeti la password:</translation>
    </message>
    <message>
        <source>&amp;Send me news about programmes and channels</source>
        <translation>&amp;Inviami novità su programmi e canali</translation>
    </message>
    <message>
        <source>Your e-mail address is your user name. It gets letters about your account and no others, unless you allow them here.</source>
        <translation>Il tuo indirizzo e-mail è il tuo nome utente. Riceverà messaggi sul tuo account e nessun altro, se non li consenti qui.</translation>
    </message>
    <message>
        <source>This is not an e-mail address yet.</source>
        <translation>Questo non è ancora un indirizzo e-mail.</translation>
    </message>
    <message>
        <source>The password needs one more character.</source>
        <translation>Alla password manca un carattere.</translation>
    </message>
    <message>
        <source>The password needs %1 more characters.</source>
        <translation>Alla password mancano %1 caratteri.</translation>
    </message>
    <message>
        <source>The two passwords differ.</source>
        <translation>Le due password non coincidono.</translation>
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
        <translation>Avviso</translation>
    </message>
    <message>
        <source>Ombravision has detected that your system does not have a proper opengl graphics driver installed.&lt;br&gt;This will cause Ombravision to run slowly especially in fullscreen mode.&lt;br&gt;Please install the driver of the maker of your graphics card, or the package that your distribution has for it, and start Ombravision again.</source>
        <translation>Ombravision ha rilevato che nel sistema non è installato un driver grafico OpenGL adeguato.&lt;br&gt;Ombravision sarà quindi lento, soprattutto a schermo intero.&lt;br&gt;Installa il driver del produttore della scheda grafica, o il pacchetto della tua distribuzione, e riavvia Ombravision.</translation>
    </message>
</context>
<context>
    <name>SoapAllowedChannels</name>
    <message>
        <source>The answer of the service has no list of channels.</source>
        <translation>La risposta del servizio non contiene un elenco di canali.</translation>
    </message>
</context>
<context>
    <name>SoapReply</name>
    <message>
        <source>it is no answer to %1</source>
        <translation>non è una risposta a %1</translation>
    </message>
    <message>
        <source>The answer of the service cannot be read: %1.</source>
        <translation>Impossibile leggere la risposta del servizio: %1.</translation>
    </message>
    <message>
        <source>it has a document type</source>
        <translation>contiene un tipo di documento</translation>
    </message>
    <message>
        <source>it has too many parts</source>
        <translation>contiene troppe parti</translation>
    </message>
    <message>
        <source>The service reports a fault and does not say which.</source>
        <translation>Il servizio segnala un errore senza dire quale.</translation>
    </message>
</context>
<context>
    <name>SoapRequest</name>
    <message>
        <source>The answer of the service is empty.</source>
        <translation>La risposta del servizio è vuota.</translation>
    </message>
</context>
<context>
    <name>SoapService</name>
    <message>
        <source>The address of the service is not a web address.</source>
        <translation>L&apos;indirizzo del servizio non è un indirizzo web.</translation>
    </message>
    <message>
        <source>The service at %1 is not reached over a secure connection (https). What you entered could be read on the way, so it was not sent.</source>
        <translation>Il servizio presso %1 non usa una connessione sicura (https). I dati inseriti si potrebbero leggere lungo il percorso, perciò non sono stati inviati.</translation>
    </message>
</context>
<context>
    <name>SoapSignup</name>
    <message>
        <source>Error parsing response</source>
        <translation>Errore nell&apos;analisi della risposta</translation>
    </message>
    <message>
        <source>The service made no account and does not say why.</source>
        <translation>Il servizio non ha creato l&apos;account e non dice perché.</translation>
    </message>
</context>
<context>
    <name>SoapTransport</name>
    <message>
        <source>The service did not answer in time.</source>
        <translation>Il servizio non ha risposto in tempo.</translation>
    </message>
    <message>
        <source>What you entered has a character that cannot be sent.</source>
        <translation>I dati inseriti contengono un carattere che non si può inviare.</translation>
    </message>
    <message>
        <source>The program is closing.</source>
        <translation>Il programma è in chiusura.</translation>
    </message>
    <message>
        <source>The answer of the service is too long.</source>
        <translation>La risposta del servizio è troppo lunga.</translation>
    </message>
    <message>
        <source>The service at %1 cannot prove who it is: %2</source>
        <translation>Il servizio presso %1 non può dimostrare la propria identità: %2</translation>
    </message>
    <message>
        <source>The service answered with the status %1.</source>
        <translation>Il servizio ha risposto con lo stato %1.</translation>
    </message>
</context>
<context>
    <name>SoundPage</name>
    <message>
        <source>Device</source>
        <translation>Dispositivo</translation>
    </message>
    <message>
        <source>&amp;Sound goes to:</source>
        <translation>&amp;Uscita audio:</translation>
    </message>
    <message>
        <source>&amp;Play a test tone</source>
        <translation>&amp;Riproduci tono di prova</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>&amp;Volume:</source>
        <translation>&amp;Volume:</translation>
    </message>
    <message>
        <source>&amp;Mute</source>
        <translation>&amp;Muto</translation>
    </message>
    <message>
        <source>%1 (system)</source>
        <translation>%1 (sistema)</translation>
    </message>
    <message>
        <source>%1 (not there now)</source>
        <translation>%1 (ora assente)</translation>
    </message>
    <message>
        <source>The tone was played. If you heard nothing, look at the volume of the device itself.</source>
        <translation>Il tono è stato riprodotto. Se non hai sentito nulla, controlla il volume del dispositivo stesso.</translation>
    </message>
    <message>
        <source>The tone was played where the system sends sound.</source>
        <translation>Il tono è stato riprodotto sull&apos;uscita audio del sistema.</translation>
    </message>
    <message>
        <source>The device could not be opened. Another program may be using it alone.</source>
        <translation>Impossibile aprire il dispositivo. Forse un altro programma lo usa in esclusiva.</translation>
    </message>
    <message>
        <source>The device was opened but played nothing.</source>
        <translation>Il dispositivo è stato aperto ma non ha riprodotto nulla.</translation>
    </message>
    <message>
        <source>Playing...</source>
        <translation>Riproduzione...</translation>
    </message>
</context>
<context>
    <name>Splitter</name>
    <message>
        <source>Picture and tabs</source>
        <translation>Immagine e schede</translation>
    </message>
</context>
<context>
    <name>SupportDialog</name>
    <message>
        <source>Support Information</source>
        <translation>Informazioni per l&apos;assistenza</translation>
    </message>
    <message>
        <source>This is what helps the &amp;support to find out what is wrong. It has no passwords and no e-mail addresses. Read it, then give it to whom you like: nothing is sent from here.</source>
        <translation>Questo aiuta l&apos;&amp;assistenza a capire che cosa non va. Non contiene password né indirizzi e-mail. Leggilo, poi dallo a chi vuoi: da qui non viene inviato nulla.</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Risultato</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>Co&amp;pia</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Copiato.</translation>
    </message>
    <message>
        <source>Save Support Information</source>
        <translation>Salva informazioni per l&apos;assistenza</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Salvato come %1.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossibile scrivere %1: %2</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>&amp;Salva come...</translation>
    </message>
    <message>
        <source>Gathering...</source>
        <translation>Raccolta dei dati...</translation>
    </message>
</context>
<context>
    <name>TabWidget</name>
    <message>
        <source>Tabs</source>
        <translation>Schede</translation>
    </message>
</context>
<context>
    <name>TestConsole</name>
    <message>
        <source>Test Console</source>
        <translation>Console di prova</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>S&amp;vuota</translation>
    </message>
    <message>
        <source>&amp;Go from channel to channel and see whether each plays</source>
        <translation>&amp;Passa da un canale all&apos;altro e verifica se ciascuno funziona</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Time for each:</source>
        <translation>&amp;Tempo per ciascuno:</translation>
    </message>
    <message>
        <source>&amp;Play a sound when one fails</source>
        <translation>&amp;Emetti un suono se uno non funziona</translation>
    </message>
    <message>
        <source>What was found out</source>
        <translation>Risultati della prova</translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s) tested</source>
        <translation>
            <numerusform>%n canale provato</numerusform>
            <numerusform>%n canali provati</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n non riuscito</numerusform>
            <numerusform>%n non riusciti</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Save Test Events</source>
        <translation>Salva gli eventi di prova</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Salvato come %1.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossibile scrivere %1: %2</translation>
    </message>
    <message>
        <source>&amp;Save as...</source>
        <translation>&amp;Salva come...</translation>
    </message>
</context>
<context>
    <name>TestEventModel</name>
    <message>
        <source>It plays.</source>
        <translation>Funziona.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Ora</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canale</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Esito</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Minimise</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Maximise</source>
        <translation>Ingrandisci</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Ripristina</translation>
    </message>
</context>
<context>
    <name>TutorialDialog</name>
    <message>
        <source>Tutorial</source>
        <translation>Introduzione</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Benvenuto</translation>
    </message>
    <message>
        <source>Over the picture</source>
        <translation>Sull&apos;immagine</translation>
    </message>
    <message>
        <source>Move the pointer over the picture, and the controls appear: volume, mute, previous and next channel, full screen. They go by themselves once the pointer rests.</source>
        <translation>Sposta il puntatore sull&apos;immagine e compaiono i controlli: volume, muto, canale precedente e successivo, schermo intero. Spariscono da soli quando il puntatore è fermo.</translation>
    </message>
    <message>
        <source>Several at once</source>
        <translation>Più canali insieme</translation>
    </message>
    <message>
        <source>Hold Ctrl and click another channel to watch it beside the first. A click on a picture gives it the sound, and Ctrl with a click closes it.</source>
        <translation>Tieni premuto Ctrl e fai clic su un altro canale per guardarlo accanto al primo. Un clic su un&apos;immagine le dà l&apos;audio, Ctrl con un clic la chiude.</translation>
    </message>
    <message>
        <source>Keep and find</source>
        <translation>Conserva e trova</translation>
    </message>
    <message>
        <source>Record what plays, keep a picture of it, or turn the carousel to see all channels at once. All of it is in the menus, with its keys.</source>
        <translation>Registra ciò che è in riproduzione, catturane una schermata o gira il carosello per vedere tutti i canali insieme. Tutto si trova nei menu, con i relativi tasti.</translation>
    </message>
    <message>
        <source>Make it yours</source>
        <translation>Come piace a te</translation>
    </message>
    <message>
        <source>Sign in to have your channels and settings wherever you are. The preferences change at once, and Help has a table of all keys. You find this tutorial there, too.</source>
        <translation>Accedi per avere canali e impostazioni ovunque tu sia. Le preferenze hanno effetto subito e l&apos;Aiuto contiene una tabella di tutti i tasti. Lì trovi anche questa introduzione.</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Indietro</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Avanti</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Immagine</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Pagina %1 di %2</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fine</translation>
    </message>
    <message>
        <source>Ombravision plays live television from all over the world. The tab &quot;Channels&quot; has your channels, and &quot;Search&quot; finds more. Choose one, and it plays.</source>
        <translation>Ombravision riproduce televisione in diretta da tutto il mondo. La scheda «Canali» contiene i tuoi canali e «Cerca» ne trova altri. Scegline uno per guardarlo.</translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Update</source>
        <translation>Aggiornamento</translation>
    </message>
    <message>
        <source>You must install the critical update to version %1 before you can sign in again.</source>
        <translation>Devi installare l&apos;aggiornamento critico alla versione %1 prima di poter accedere di nuovo.</translation>
    </message>
    <message>
        <source>Version %1 of Ombravision is available.</source>
        <translation>È disponibile la versione %1 di Ombravision.</translation>
    </message>
    <message>
        <source>It can be downloaded from %1.</source>
        <translation>Si può scaricare da %1.</translation>
    </message>
    <message>
        <source>The service names no safe address to download it from.</source>
        <translation>Il servizio non indica un indirizzo sicuro da cui scaricarla.</translation>
    </message>
    <message>
        <source>MD5 sum of the file: %1</source>
        <translation>Somma MD5 del file: %1</translation>
    </message>
    <message>
        <source>&amp;Download</source>
        <translation>&amp;Scarica</translation>
    </message>
    <message>
        <source>What is new</source>
        <translation>Novità</translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Impossibile aprire la pagina: %1</translation>
    </message>
</context>
<context>
    <name>VideoInformationDialog</name>
    <message>
        <source>Video Information</source>
        <translation>Informazioni sul video</translation>
    </message>
    <message>
        <source>Cha&amp;nnel:</source>
        <translation>Ca&amp;nale:</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Indirizzo:</translation>
    </message>
    <message>
        <source>Transport:</source>
        <translation>Trasporto:</translation>
    </message>
    <message>
        <source>Picture:</source>
        <translation>Video:</translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation>Audio:</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Fotogrammi:</translation>
    </message>
    <message>
        <source>Packets lost:</source>
        <translation>Pacchetti persi:</translation>
    </message>
    <message>
        <source>Buffer:</source>
        <translation>Buffer:</translation>
    </message>
    <message>
        <source>Bit rate:</source>
        <translation>Bit rate:</translation>
    </message>
    <message>
        <source>Offset of the sound:</source>
        <translation>Sfasamento audio:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Tempo:</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>Co&amp;pia</translation>
    </message>
    <message>
        <source>%1, %2 x %3, %4 per second</source>
        <translation>%1, %2 x %3, %4 al secondo</translation>
    </message>
    <message numerus="yes">
        <source>%1, %2 Hz, %n channel(s)</source>
        <translation>
            <numerusform>%1, %2 Hz, %n canale</numerusform>
            <numerusform>%1, %2 Hz, %n canali</numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation>nessuno</translation>
    </message>
    <message>
        <source>%1 ms before the picture</source>
        <translation>%1 ms prima del video</translation>
    </message>
    <message>
        <source>%1 ms after the picture</source>
        <translation>%1 ms dopo il video</translation>
    </message>
    <message>
        <source>No open channel</source>
        <translation>Nessun canale aperto</translation>
    </message>
    <message>
        <source>%1 shown, %2 dropped</source>
        <translation>%1 mostrati, %2 scartati</translation>
    </message>
    <message>
        <source>%1 of the picture, %2 of the sound</source>
        <translation>%1 del video, %2 dell&apos;audio</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>%1 of %2 s</source>
        <translation>%1 di %2 s</translation>
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
        <translation>Immagine</translation>
    </message>
    <message>
        <source>&amp;Size of the picture:</source>
        <translation>Dimensione dell&apos;&amp;immagine:</translation>
    </message>
    <message>
        <source>as large as fits</source>
        <translation>la più grande possibile</translation>
    </message>
    <message>
        <source>fills the window, cut off at the edges</source>
        <translation>riempie la finestra, tagliata ai bordi</translation>
    </message>
    <message>
        <source>stretched to the window</source>
        <translation>deformata per riempire la finestra</translation>
    </message>
    <message>
        <source>half its own size</source>
        <translation>metà dimensione</translation>
    </message>
    <message>
        <source>its own size</source>
        <translation>dimensione reale</translation>
    </message>
    <message>
        <source>twice its own size</source>
        <translation>doppia dimensione</translation>
    </message>
    <message>
        <source>Smooth the &amp;edges of what is drawn (antialiasing)</source>
        <translation>Smussa i &amp;bordi di ciò che viene disegnato (antialiasing)</translation>
    </message>
    <message>
        <source>Graphics card</source>
        <translation>Scheda grafica</translation>
    </message>
    <message>
        <source>&amp;Convert colours on the graphics card</source>
        <translation>&amp;Converti i colori sulla scheda grafica</translation>
    </message>
    <message>
        <source>&amp;By means of:</source>
        <translation>Tra&amp;mite:</translation>
    </message>
    <message>
        <source>the best that the driver offers</source>
        <translation>il meglio che offre il driver</translation>
    </message>
    <message>
        <source>a shader</source>
        <translation>uno shader</translation>
    </message>
    <message>
        <source>a fragment program</source>
        <translation>un programma per frammenti</translation>
    </message>
    <message>
        <source>the processor</source>
        <translation>il processore</translation>
    </message>
    <message>
        <source>&amp;Pictures reach the screen by:</source>
        <translation>Immagini allo &amp;schermo tramite:</translation>
    </message>
    <message>
        <source>what is fastest here</source>
        <translation>il più veloce qui</translation>
    </message>
    <message>
        <source>OpenGL</source>
        <translation>OpenGL</translation>
    </message>
    <message>
        <source>shared memory</source>
        <translation>memoria condivisa</translation>
    </message>
    <message>
        <source>Changes other than the size open the channels that play again, which takes a moment.</source>
        <translation>Le modifiche, tranne la dimensione, riaprono i canali in riproduzione: occorre un momento.</translation>
    </message>
    <message>
        <source>De&amp;interlace pictures that are made of two fields</source>
        <translation>Deinter&amp;laccia le immagini composte da due semiquadri</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source>Ombravision is still there</source>
        <translation>Ombravision è ancora qui</translation>
    </message>
    <message>
        <source>Click on its icon to go on watching. Exit in its menu ends the program.</source>
        <translation>Fai clic sulla sua icona per continuare a guardare. «Esci» nel suo menu chiude il programma.</translation>
    </message>
    <message>
        <source>The screenshot could not be saved in %1</source>
        <translation>Impossibile salvare la schermata in %1</translation>
    </message>
    <message>
        <source>Screenshot saved as %1</source>
        <translation>Schermata salvata come %1</translation>
    </message>
    <message>
        <source>You are signed in as %1.</source>
        <translation>Hai effettuato l&apos;accesso come %1.</translation>
    </message>
    <message numerus="yes">
        <source>Your account shows %n channel(s) at once.</source>
        <translation>
            <numerusform>Il tuo account mostra %n canale alla volta.</numerusform>
            <numerusform>Il tuo account mostra %n canali alla volta.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (muted)</source>
        <translation>%1 (muto)</translation>
    </message>
    <message>
        <source>%1 (volume %2 %)</source>
        <translation>%1 (volume %2 %)</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canali</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Cerca</translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Impossibile aprire la pagina: %1</translation>
    </message>
    <message>
        <source>Signing in...</source>
        <translation>Accesso in corso...</translation>
    </message>
</context>
<context>
    <name>WindowDialogs</name>
    <message>
        <source>Test Console</source>
        <translation>Console di prova</translation>
    </message>
    <message>
        <source>Video Information</source>
        <translation>Informazioni sul video</translation>
    </message>
    <message>
        <source>Stream Buffer</source>
        <translation>Buffer del flusso</translation>
    </message>
    <message>
        <source>Open Video Stream</source>
        <translation>Apri un flusso video</translation>
    </message>
    <message>
        <source>Open Latte Stream</source>
        <translation>Apri un flusso Latte</translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>Take Screenshot</source>
        <translation>Cattura una schermata</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Channels</source>
        <translation>&amp;Canali</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Opzioni</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Riproduzione</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocità</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Visualizza</translation>
    </message>
    <message>
        <source>Draw Mode</source>
        <translation>Adattamento</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Prospettiva</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effetti</translation>
    </message>
    <message numerus="yes">
        <source>%n more in the list of channels</source>
        <translation>
            <numerusform>%n altro nell&apos;elenco dei canali</numerusform>
            <numerusform>Altri %n nell&apos;elenco dei canali</numerusform>
        </translation>
    </message>
    <message>
        <source>No channels</source>
        <translation>Nessun canale</translation>
    </message>
    <message>
        <source>To the menus</source>
        <translation>Ai menu</translation>
    </message>
    <message>
        <source>Previous Channel</source>
        <translation>Canale precedente</translation>
    </message>
    <message>
        <source>Next Channel</source>
        <translation>Canale successivo</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Riproduci</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
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
