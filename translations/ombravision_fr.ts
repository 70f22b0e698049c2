<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Ombravision</source>
        <translation>À propos d&apos;Ombravision</translation>
    </message>
    <message>
        <source>Ombravision %1</source>
        <translation>Ombravision %1</translation>
    </message>
    <message>
        <source>The sign of Ombravision</source>
        <translation>Le logo d&apos;Ombravision</translation>
    </message>
    <message>
        <source>Live internet television on your desktop.</source>
        <translation>La télévision en direct par Internet sur votre bureau.</translation>
    </message>
    <message>
        <source>Built on %1. Each of them is free software under its own licence.</source>
        <translation>Repose sur %1. Chacun est un logiciel libre sous sa propre licence.</translation>
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
        <translation>E-&amp;mail&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>Mot de &amp;passe&#xa0;:</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
</context>
<context>
    <name>AccountPage</name>
    <message>
        <source>Account</source>
        <translation>Compte</translation>
    </message>
    <message>
        <source>Sign in &amp;automatically at the start</source>
        <translation>Se connecter &amp;automatiquement au démarrage</translation>
    </message>
    <message>
        <source>&amp;Name in chats:</source>
        <translation>&amp;Nom dans les chats&#xa0;:</translation>
    </message>
    <message>
        <source>Security</source>
        <translation>Sécurité</translation>
    </message>
    <message>
        <source>Allow &amp;passwords to be sent where nothing keeps them secret</source>
        <translation>Autoriser l&apos;envoi de mots de &amp;passe sans protection</translation>
    </message>
    <message>
        <source>Warning: whoever can listen on the way to the service reads your password then. Allow it only for a service on a network that is all yours.</source>
        <translation>Attention&#xa0;: quiconque peut écouter le trafic vers le service lit alors votre mot de passe. Ne l&apos;autorisez que pour un service situé sur un réseau entièrement à vous.</translation>
    </message>
    <message>
        <source>Signed in as %1.</source>
        <translation>Connecté en tant que %1.</translation>
    </message>
    <message>
        <source>Nobody is signed in.</source>
        <translation>Personne n&apos;est connecté.</translation>
    </message>
    <message>
        <source>Sign &amp;out</source>
        <translation>Se dé&amp;connecter</translation>
    </message>
    <message>
        <source>You will be asked for your password once more.</source>
        <translation>Votre mot de passe vous sera demandé encore une fois.</translation>
    </message>
    <message>
        <source>Sign &amp;in...</source>
        <translation>Se &amp;connecter...</translation>
    </message>
</context>
<context>
    <name>AddStreamsDialog</name>
    <message>
        <source>Add Streams</source>
        <translation>Ajouter des flux</translation>
    </message>
    <message>
        <source>&amp;Addresses and files, one a line:</source>
        <translation>&amp;Adresses et fichiers, un par ligne&#xa0;:</translation>
    </message>
    <message>
        <source>What the lines are</source>
        <translation>Nature des lignes</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>A&amp;jouter</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Ce fichier n&apos;existe pas.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Choose Files</source>
        <translation>Choisir des fichiers</translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n line(s) are read; the others stay here.</source>
        <translation>
            <numerusform>Seule la première ligne est lue&#xa0;; les autres restent ici.</numerusform>
            <numerusform>Seules les %n premières lignes sont lues&#xa0;; les autres restent ici.</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose &amp;files...</source>
        <translation>Choisir des &amp;fichiers...</translation>
    </message>
    <message>
        <source>Looking for this file...</source>
        <translation>Recherche de ce fichier...</translation>
    </message>
</context>
<context>
    <name>AddressCheck</name>
    <message>
        <source>This is too long for an address.</source>
        <translation>C&apos;est trop long pour une adresse.</translation>
    </message>
    <message>
        <source>A file on this computer.</source>
        <translation>Un fichier sur cet ordinateur.</translation>
    </message>
    <message>
        <source>An address begins with a scheme, such as http:// or rtsp://.</source>
        <translation>Une adresse commence par un schéma, comme http:// ou rtsp://.</translation>
    </message>
    <message>
        <source>Nothing is known about addresses that begin with %1://.</source>
        <translation>Les adresses qui commencent par %1:// sont inconnues.</translation>
    </message>
    <message>
        <source>There is something in this address that does not belong there.</source>
        <translation>Cette adresse contient quelque chose qui n&apos;a rien à y faire.</translation>
    </message>
    <message>
        <source>The name of the computer is missing after %1://.</source>
        <translation>Il manque le nom de l&apos;ordinateur après %1://.</translation>
    </message>
    <message>
        <source>A stream of %1.</source>
        <translation>Un flux de %1.</translation>
    </message>
</context>
<context>
    <name>AlertPreview</name>
    <message>
        <source>Sample alert</source>
        <translation>Exemple d&apos;alerte</translation>
    </message>
    <message>
        <source>Breaking news
This is how an alert looks.</source>
        <translation>Flash info
Voici à quoi ressemble une alerte.</translation>
    </message>
</context>
<context>
    <name>AlertsPage</name>
    <message>
        <source>Tell me of</source>
        <translation>Me signaler</translation>
    </message>
    <message>
        <source>&amp;Breaking news on my channels</source>
        <translation>&amp;Flashs info de mes chaînes</translation>
    </message>
    <message>
        <source>&amp;New channels</source>
        <translation>&amp;Nouvelles chaînes</translation>
    </message>
    <message>
        <source>What is &amp;talked about most</source>
        <translation>Sujets les &amp;plus discutés</translation>
    </message>
    <message>
        <source>&amp;Messages of the service</source>
        <translation>&amp;Messages du service</translation>
    </message>
    <message>
        <source>&amp;Lines of the chat</source>
        <translation>Messages du &amp;chat</translation>
    </message>
    <message>
        <source>The bells in the list of channels say whose breaking news you are told of.</source>
        <translation>Les cloches de la liste des chaînes indiquent celles dont les flashs info vous sont signalés.</translation>
    </message>
    <message>
        <source>How</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>In a &amp;window of its own</source>
        <translation>Dans une f&amp;enêtre à part</translation>
    </message>
    <message>
        <source>In the li&amp;ve panel</source>
        <translation>Dans le panneau en di&amp;rect</translation>
    </message>
    <message>
        <source>&amp;Each for:</source>
        <translation>D&amp;urée&#xa0;:</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Opacity:</source>
        <translation>&amp;Opacité&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Show one</source>
        <translation>&amp;Tester</translation>
    </message>
    <message>
        <source>As notices of the des&amp;ktop</source>
        <translation>Par les notifications du &amp;bureau</translation>
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
    <name>AudioOutputChoice</name>
    <message>
        <source>The sound device could not be opened: there is no sound for now.</source>
        <translation>Le périphérique audio n&apos;a pas pu être ouvert&#xa0;: pas de son pour l&apos;instant.</translation>
    </message>
    <message>
        <source>%1 could not be opened. Sound goes where the system sends it.</source>
        <translation>%1 n&apos;a pas pu être ouvert. Le son va là où le système l&apos;envoie.</translation>
    </message>
</context>
<context>
    <name>BufferLatteVisualiser</name>
    <message>
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
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
        <translation>Aucune chaîne ouverte n&apos;a de tampon de flux.</translation>
    </message>
    <message>
        <source>Buffer of %1</source>
        <translation>Tampon de %1</translation>
    </message>
</context>
<context>
    <name>Channel</name>
    <message>
        <source>
Click here to reconnect</source>
        <translation>
Cliquez ici pour vous reconnecter</translation>
    </message>
</context>
<context>
    <name>ChannelEvents</name>
    <message>
        <source>The channel did not play in time.</source>
        <translation>La chaîne n&apos;a pas démarré à temps.</translation>
    </message>
</context>
<context>
    <name>ChannelFeed</name>
    <message>
        <source>
Retrying...</source>
        <translation>
Nouvel essai...</translation>
    </message>
    <message>
        <source>Couldn&apos;t open channel file.</source>
        <translation>Impossible d&apos;ouvrir le fichier des chaînes.</translation>
    </message>
    <message>
        <source>Error parsing channel file.</source>
        <translation>Le fichier des chaînes est erroné.</translation>
    </message>
</context>
<context>
    <name>ChannelListFilters</name>
    <message>
        <source>Show favourites only</source>
        <translation>Favoris uniquement</translation>
    </message>
    <message>
        <source>Refresh the list</source>
        <translation>Actualiser la liste</translation>
    </message>
    <message>
        <source>Filter by title or language</source>
        <translation>Filtrer par titre ou langue</translation>
    </message>
    <message>
        <source>Kind of channels</source>
        <translation>Type de chaînes</translation>
    </message>
    <message>
        <source>Any</source>
        <translation>Toutes</translation>
    </message>
    <message>
        <source>Premium Partner</source>
        <translation>Partenaires premium</translation>
    </message>
    <message>
        <source>Free Partner</source>
        <translation>Partenaires gratuits</translation>
    </message>
    <message>
        <source>Viewer Added</source>
        <translation>Ajouts de spectateurs</translation>
    </message>
</context>
<context>
    <name>ChannelListWidget</name>
    <message>
        <source>Channels</source>
        <translation>Chaînes</translation>
    </message>
    <message>
        <source>No channel fits your filters.</source>
        <translation>Aucune chaîne pour ces filtres.</translation>
    </message>
    <message>
        <source>Show All Channels</source>
        <translation>Tout afficher</translation>
    </message>
    <message>
        <source>Sign in to see your channels.</source>
        <translation>Connectez-vous pour voir vos chaînes.</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Loading channels...</source>
        <translation>Chargement des chaînes...</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualiser</translation>
    </message>
    <message>
        <source>There are no channels on your list.</source>
        <translation>Il n&apos;y a aucune chaîne dans votre liste.</translation>
    </message>
    <message>
        <source>The channel has gone from the list.</source>
        <translation>La chaîne ne figure plus dans la liste.</translation>
    </message>
    <message>
        <source>For sale: click to purchase</source>
        <translation>En vente&#xa0;: cliquez pour acheter</translation>
    </message>
    <message>
        <source>This channel cannot be watched now.</source>
        <translation>Chaîne indisponible actuellement.</translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation>Acheter</translation>
    </message>
    <message>
        <source>Breaking News Alerts</source>
        <translation>Alertes de flash info</translation>
    </message>
    <message>
        <source>Delete from My Channels</source>
        <translation>Supprimer de Mes chaînes</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation>Ajouter au multi-vues</translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation>Retirer du multi-vues</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Add Stream</source>
        <translation>Ajouter le flux</translation>
    </message>
    <message>
        <source>Remove Stream</source>
        <translation>Retirer le flux</translation>
    </message>
    <message>
        <source>Reset Streams</source>
        <translation>Rétablir les flux</translation>
    </message>
    <message>
        <source>This address has a password in it: it is not kept as a favourite.</source>
        <translation>Cette adresse contient un mot de passe&#xa0;: elle n&apos;est pas conservée dans les favoris.</translation>
    </message>
    <message>
        <source>Favourite</source>
        <translation>Favori</translation>
    </message>
</context>
<context>
    <name>ChannelListWidgetModel</name>
    <message>
        <source>On</source>
        <translation>Activées</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivées</translation>
    </message>
    <message>
        <source>favourite</source>
        <translation>favorite</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Alertes</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Nom de la chaîne</translation>
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
        <translation>
            <numerusform>Chargement des chaînes... déjà %n</numerusform>
            <numerusform>Chargement des chaînes... déjà %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Impossible d&apos;ouvrir la page&#xa0;: %1</translation>
    </message>
    <message>
        <source>The list could not be refreshed: %1</source>
        <translation>Impossible d&apos;actualiser la liste&#xa0;: %1</translation>
    </message>
    <message>
        <source>Deleting %1...</source>
        <translation>Suppression de %1...</translation>
    </message>
    <message>
        <source>Sign in to change the list of your channels.</source>
        <translation>Connectez-vous pour modifier la liste de vos chaînes.</translation>
    </message>
    <message>
        <source>%1 was deleted.</source>
        <translation>Chaîne %1 supprimée.</translation>
    </message>
    <message>
        <source>The channel could not be deleted: %1</source>
        <translation>Impossible de supprimer la chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>Sign in to add a channel.</source>
        <translation>Connectez-vous pour ajouter une chaîne.</translation>
    </message>
    <message>
        <source>Adding the channel...</source>
        <translation>Ajout de la chaîne...</translation>
    </message>
</context>
<context>
    <name>ChannelRowStates</name>
    <message>
        <source>Playing</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Previewing</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouverte</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>Acquisition</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
</context>
<context>
    <name>ChannelSearchCombo</name>
    <message>
        <source>Enter your channel search</source>
        <translation>Rechercher une chaîne</translation>
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
        <translation>Top des ajouts</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Afficher plus</translation>
    </message>
    <message>
        <source>Channels that were found</source>
        <translation>Chaînes trouvées</translation>
    </message>
    <message>
        <source>Search on the web site</source>
        <translation>Rechercher sur le site web</translation>
    </message>
    <message>
        <source>Sign in to search for channels.</source>
        <translation>Connectez-vous pour rechercher des chaînes.</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Find the channels that other viewers have added.</source>
        <translation>Trouvez les chaînes que d&apos;autres spectateurs ont ajoutées.</translation>
    </message>
    <message>
        <source>The channel has no address that can be opened.</source>
        <translation>La chaîne n&apos;a pas d&apos;adresse que l&apos;on puisse ouvrir.</translation>
    </message>
    <message>
        <source>news</source>
        <translation>infos</translation>
    </message>
    <message>
        <source>sport</source>
        <translation>sport</translation>
    </message>
    <message>
        <source>music</source>
        <translation>musique</translation>
    </message>
    <message>
        <source>us</source>
        <translation>us</translation>
    </message>
    <message>
        <source>uk</source>
        <translation>uk</translation>
    </message>
    <message>
        <source>Searching for %1...</source>
        <translation>Recherche de %1...</translation>
    </message>
    <message>
        <source>Searching for most popular...</source>
        <translation>Recherche des plus populaires...</translation>
    </message>
    <message numerus="yes">
        <source>Search for %1 returned %n results</source>
        <translation>
            <numerusform>Recherche de %1&#xa0;: %n résultat</numerusform>
            <numerusform>Recherche de %1&#xa0;: %n résultats</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Search for most popular returned %n results</source>
        <translation>
            <numerusform>Recherche des plus populaires&#xa0;: %n résultat</numerusform>
            <numerusform>Recherche des plus populaires&#xa0;: %n résultats</numerusform>
        </translation>
    </message>
    <message>
        <source>No channel was found.</source>
        <translation>Aucune chaîne trouvée.</translation>
    </message>
    <message>
        <source>The search failed: %1</source>
        <translation>La recherche a échoué&#xa0;: %1</translation>
    </message>
    <message>
        <source>The most popular channels could not be loaded: %1</source>
        <translation>Impossible de charger les chaînes les plus populaires&#xa0;: %1</translation>
    </message>
    <message>
        <source>The channel could not be added: %1</source>
        <translation>Impossible d&apos;ajouter la chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>The channel could not be created: %1</source>
        <translation>Impossible de créer la chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>The channel could not be removed: %1</source>
        <translation>Impossible de retirer la chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>Adding %1...</source>
        <translation>Ajout de %1...</translation>
    </message>
    <message>
        <source>%1 was successfully added</source>
        <translation>Chaîne %1 ajoutée</translation>
    </message>
    <message>
        <source>Channel was removed</source>
        <translation>Chaîne retirée</translation>
    </message>
    <message>
        <source>The service has not removed it.</source>
        <translation>Le service ne l&apos;a pas retirée.</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Add to Multiview</source>
        <translation>Ajouter au multi-vues</translation>
    </message>
    <message>
        <source>Remove from Multiview</source>
        <translation>Retirer du multi-vues</translation>
    </message>
    <message>
        <source>Save to My Channels</source>
        <translation>Ajouter à Mes chaînes</translation>
    </message>
    <message>
        <source>New Channel...</source>
        <translation>Nouvelle chaîne...</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetItemDelegate</name>
    <message>
        <source>Saved</source>
        <translation>Ajoutée</translation>
    </message>
</context>
<context>
    <name>ChannelSearchWidgetModel</name>
    <message>
        <source>Saved</source>
        <translation>Ajoutée</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Nom de la chaîne</translation>
    </message>
</context>
<context>
    <name>ChannelStream</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation>Acquisition de la chaîne...
Veuillez patienter</translation>
    </message>
    <message>
        <source>Recording stopped: %1</source>
        <translation>Enregistrement arrêté&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1, a file</source>
        <translation>%1, fichier</translation>
    </message>
    <message>
        <source>%1, live, through a buffer</source>
        <translation>%1, en direct, avec tampon</translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation>%1, en direct</translation>
    </message>
    <message>
        <source>a file on this computer</source>
        <translation>un fichier sur cet ordinateur</translation>
    </message>
</context>
<context>
    <name>ChannelTitle</name>
    <message>
        <source>Unnamed channel</source>
        <translation>Chaîne sans nom</translation>
    </message>
</context>
<context>
    <name>ChannelView</name>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
</context>
<context>
    <name>ChatColours</name>
    <message>
        <source>Room Name</source>
        <translation>Nom du salon</translation>
    </message>
    <message>
        <source>Your Alias</source>
        <translation>Votre pseudo</translation>
    </message>
    <message>
        <source>Other Alias</source>
        <translation>Autre pseudo</translation>
    </message>
    <message>
        <source>Ignored Alias</source>
        <translation>Pseudo ignoré</translation>
    </message>
    <message>
        <source>Admin Alias</source>
        <translation>Pseudo d&apos;admin</translation>
    </message>
    <message>
        <source>Bot Alias</source>
        <translation>Pseudo de bot</translation>
    </message>
    <message>
        <source>Timestamp</source>
        <translation>Horodatage</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Lien</translation>
    </message>
</context>
<context>
    <name>ChatPage</name>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>&amp;Size of the text:</source>
        <translation>&amp;Taille du texte&#xa0;:</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>Sample of a chat</source>
        <translation>Exemple de chat</translation>
    </message>
    <message>
        <source>Good evening!</source>
        <translation>Bonsoir&#xa0;!</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Skin</source>
        <translation>Habillage</translation>
    </message>
</context>
<context>
    <name>ColourButton</name>
    <message>
        <source>%1: colour %2</source>
        <translation>%1&#xa0;: couleur %2</translation>
    </message>
</context>
<context>
    <name>ConnectionTest</name>
    <message>
        <source>This computer finds no way to %1. Is it connected to a network?</source>
        <translation>Cet ordinateur ne trouve pas de chemin vers %1. Est-il connecté à un réseau&#xa0;?</translation>
    </message>
    <message>
        <source>This computer finds no way to the proxy %1. Is its name right?</source>
        <translation>Cet ordinateur ne trouve pas de chemin vers le proxy %1. Son nom est-il correct&#xa0;?</translation>
    </message>
    <message>
        <source>Something on the way answers in place of %1: it can&apos;t be reached from there.</source>
        <translation>Un intermédiaire répond à la place de %1, qui est injoignable d&apos;ici.</translation>
    </message>
    <message>
        <source>The network answers with a page of %1. Perhaps it wants you to sign in there first.</source>
        <translation>Le réseau répond par une page de %1. Il faut peut-être d&apos;abord s&apos;y connecter.</translation>
    </message>
    <message>
        <source>%1 answered within %2 ms.</source>
        <translation>%1 a répondu en %2&#xa0;ms.</translation>
    </message>
    <message>
        <source>%1 accepts no connection.</source>
        <translation>%1 n&apos;accepte pas de connexion.</translation>
    </message>
    <message>
        <source>There is no machine called %1.</source>
        <translation>Aucune machine ne s&apos;appelle %1.</translation>
    </message>
    <message numerus="yes">
        <source>%1 did not answer within %n second(s).</source>
        <translation>
            <numerusform>%1 n&apos;a pas répondu en %n&#xa0;seconde.</numerusform>
            <numerusform>%1 n&apos;a pas répondu en %n&#xa0;secondes.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 could not prove who it is: its certificate is not valid.</source>
        <translation>%1 n&apos;a pas pu prouver son identité&#xa0;: son certificat n&apos;est pas valide.</translation>
    </message>
    <message>
        <source>The proxy %1 accepts no connection. Is the port right?</source>
        <translation>Le proxy %1 n&apos;accepte pas de connexion. Le port est-il correct&#xa0;?</translation>
    </message>
    <message>
        <source>There is no proxy called %1.</source>
        <translation>Aucun proxy ne s&apos;appelle %1.</translation>
    </message>
    <message>
        <source>The proxy %1 did not answer in time.</source>
        <translation>Le proxy %1 n&apos;a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The proxy %1 wants a user name and a password, or does not accept these.</source>
        <translation>Le proxy %1 demande un nom d&apos;utilisateur et un mot de passe, ou refuse ceux-ci.</translation>
    </message>
    <message>
        <source>%1 could not be reached: %2</source>
        <translation>Impossible de joindre %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>DeleteChannelDialog</name>
    <message>
        <source>Delete Channel</source>
        <translation>Supprimer la chaîne</translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel &lt;b&gt;%1&lt;/b&gt; from My Channels?&lt;br&gt;&lt;br&gt;</source>
        <translation>Voulez-vous vraiment supprimer la chaîne &lt;b&gt;%1&lt;/b&gt; de Mes chaînes&#xa0;?&lt;br&gt;&lt;br&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Note:&lt;/b&gt; To restore a partner channel that you have deleted &lt;a href=&quot;manage&quot;&gt;click here&lt;/a&gt;.</source>
        <translation>&lt;b&gt;Remarque&#xa0;:&lt;/b&gt; pour rétablir une chaîne partenaire supprimée, &lt;a href=&quot;manage&quot;&gt;cliquez ici&lt;/a&gt;.</translation>
    </message>
    <message>
        <source>Are you sure you wish to delete the channel %1 from My Channels?</source>
        <translation>Voulez-vous vraiment supprimer la chaîne %1 de Mes chaînes&#xa0;?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>EffectEditor</name>
    <message>
        <source>Line numbers</source>
        <translation>Numéros de ligne</translation>
    </message>
</context>
<context>
    <name>EffectNames</name>
    <message>
        <source>An effect needs a name.</source>
        <translation>Un effet doit avoir un nom.</translation>
    </message>
    <message>
        <source>This name is too long.</source>
        <translation>Ce nom est trop long.</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Netteté</translation>
    </message>
    <message>
        <source>Black and White</source>
        <translation>Noir et blanc</translation>
    </message>
    <message>
        <source>Film Grain</source>
        <translation>Grain de film</translation>
    </message>
    <message>
        <source>Scan Lines</source>
        <translation>Lignes de balayage</translation>
    </message>
</context>
<context>
    <name>EffectTrial</name>
    <message>
        <source>The graphics driver does not compile this effect.</source>
        <translation>Le pilote graphique ne compile pas cet effet.</translation>
    </message>
    <message>
        <source>The graphics driver takes too long to compile this effect. It was switched off.</source>
        <translation>Le pilote graphique met trop de temps à compiler cet effet. Il a été désactivé.</translation>
    </message>
    <message>
        <source>One picture would take about %1 ms with this effect. That is too long to play: it was switched off.</source>
        <translation>Avec cet effet, une image prendrait environ %1&#xa0;ms. C&apos;est trop long pour la lecture&#xa0;: il a été désactivé.</translation>
    </message>
    <message>
        <source>A picture is never finished with this effect. It was switched off.</source>
        <translation>Avec cet effet, une image n&apos;est jamais terminée. Il a été désactivé.</translation>
    </message>
    <message>
        <source>The graphics driver fails with this effect. It was switched off.</source>
        <translation>Le pilote graphique échoue avec cet effet. Il a été désactivé.</translation>
    </message>
    <message>
        <source>This effect could not be tried, so it is not shown.</source>
        <translation>Cet effet n&apos;a pas pu être essayé&#xa0;: il n&apos;est pas affiché.</translation>
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
        <translation>&amp;Afficher les effets sur l&apos;image</translation>
    </message>
    <message>
        <source>Effects and their source</source>
        <translation>Effets et leur source</translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation>Ré&amp;tablir</translation>
    </message>
    <message>
        <source>The source as it was before you changed it</source>
        <translation>La source telle qu&apos;elle était avant vos modifications</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Source of the effect</source>
        <translation>Source de l&apos;effet</translation>
    </message>
    <message>
        <source>Comes with the program. Duplicate it to make your own of it.</source>
        <translation>Fourni avec le programme. Dupliquez-le pour en faire le vôtre.</translation>
    </message>
    <message>
        <source>What you type is kept, and shown while the effect is on.</source>
        <translation>Votre saisie est conservée, et affichée tant que l&apos;effet est actif.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Ligne %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>New effect</source>
        <translation>Nouvel effet</translation>
    </message>
    <message>
        <source>&amp;Name of the effect:</source>
        <translation>&amp;Nom de l&apos;effet&#xa0;:</translation>
    </message>
    <message>
        <source>Delete the effect &quot;%1&quot;? It can&apos;t be brought back.</source>
        <translation>Supprimer l&apos;effet «&#xa0;%1&#xa0;»&#xa0;? Cette action est irréversible.</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
</context>
<context>
    <name>EffectsLibrary</name>
    <message>
        <source>There is an effect called &quot;%1&quot; already.</source>
        <translation>Il y a déjà un effet nommé «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The effects are still being read.</source>
        <translation>Les effets sont encore en cours de lecture.</translation>
    </message>
    <message numerus="yes">
        <source>There can be %n effect(s) at most.</source>
        <translation>
            <numerusform>Il peut y avoir %n effet au maximum.</numerusform>
            <numerusform>Il peut y avoir %n effets au maximum.</numerusform>
        </translation>
    </message>
    <message>
        <source>This effect is too long.</source>
        <translation>Cet effet est trop long.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be renamed.</source>
        <translation>Cet effet ne peut pas être renommé.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be deleted.</source>
        <translation>Cet effet ne peut pas être supprimé.</translation>
    </message>
    <message>
        <source>This effect can&apos;t be changed.</source>
        <translation>Cet effet ne peut pas être modifié.</translation>
    </message>
</context>
<context>
    <name>EffectsList</name>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Dupliquer</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Earlier</source>
        <translation>Plus tôt</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Plus tard</translation>
    </message>
    <message>
        <source>Effects, in the order in which they are applied</source>
        <translation>Effets, dans leur ordre d&apos;application</translation>
    </message>
</context>
<context>
    <name>EffectsStore</name>
    <message>
        <source>There are too many effects in %1.</source>
        <translation>Il y a trop d&apos;effets dans %1.</translation>
    </message>
    <message>
        <source>The file %1 is not named as effects are.</source>
        <translation>Le nom du fichier %1 n&apos;est pas celui d&apos;un effet.</translation>
    </message>
    <message>
        <source>The effect in %1 can&apos;t be read.</source>
        <translation>L&apos;effet dans %1 est illisible.</translation>
    </message>
    <message>
        <source>The order of the effects in %1 can&apos;t be read.</source>
        <translation>L&apos;ordre des effets dans %1 est illisible.</translation>
    </message>
    <message>
        <source>The program ended while this effect was being tried. It was switched off.</source>
        <translation>Le programme s&apos;est arrêté pendant l&apos;essai de cet effet. Il a été désactivé.</translation>
    </message>
    <message>
        <source>The program ended while the effect &quot;%1&quot; was being tried. It was switched off.</source>
        <translation>Le programme s&apos;est arrêté pendant l&apos;essai de l&apos;effet «&#xa0;%1&#xa0;». Il a été désactivé.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossible d&apos;écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed.</source>
        <translation>Impossible de supprimer %1.</translation>
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
        <translation>Carrousel des chaînes</translation>
    </message>
    <message>
        <source>The channel to the left</source>
        <translation>La chaîne à gauche</translation>
    </message>
    <message>
        <source>Play this channel</source>
        <translation>Lire cette chaîne</translation>
    </message>
    <message>
        <source>Show this channel beside the others</source>
        <translation>Afficher cette chaîne à côté des autres</translation>
    </message>
    <message>
        <source>The channel to the right</source>
        <translation>La chaîne à droite</translation>
    </message>
</context>
<context>
    <name>GLChannelBar</name>
    <message>
        <source>Playback</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Channel logo</source>
        <translation>Logo de la chaîne</translation>
    </message>
    <message>
        <source>Previous channel (Page Up)</source>
        <translation>Chaîne précédente (Page préc.)</translation>
    </message>
    <message>
        <source>Next channel (Page Down)</source>
        <translation>Chaîne suivante (Page suiv.)</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Take a screenshot</source>
        <translation>Faire une capture d&apos;écran</translation>
    </message>
    <message>
        <source>Channel carousel</source>
        <translation>Carrousel des chaînes</translation>
    </message>
    <message>
        <source>Show only this channel</source>
        <translation>Afficher seulement cette chaîne</translation>
    </message>
    <message>
        <source>Show another channel beside this one</source>
        <translation>Afficher une autre chaîne à côté de celle-ci</translation>
    </message>
    <message>
        <source>Leave full screen (Escape)</source>
        <translation>Quitter le plein écran (Échap)</translation>
    </message>
    <message>
        <source>Full screen (Ctrl+F)</source>
        <translation>Plein écran (Ctrl+F)</translation>
    </message>
    <message>
        <source>Sound on (Ctrl+M)</source>
        <translation>Rétablir le son (Ctrl+M)</translation>
    </message>
    <message>
        <source>Mute (Ctrl+M)</source>
        <translation>Couper le son (Ctrl+M)</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Arrêter l&apos;enregistrement</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Lire (Espace)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Espace)</translation>
    </message>
</context>
<context>
    <name>GLIndicatorBar</name>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message numerus="yes">
        <source>%n new chat message(s)</source>
        <translation>
            <numerusform>%n nouveau message de chat</numerusform>
            <numerusform>%n nouveaux messages de chat</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new alert(s)</source>
        <translation>
            <numerusform>%n nouvelle alerte</numerusform>
            <numerusform>%n nouvelles alertes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GLMovie</name>
    <message>
        <source>Could not locate a video decoder. Cannot play</source>
        <translation>Décodeur vidéo introuvable. Lecture impossible</translation>
    </message>
    <message>
        <source>Could not open video codec. Cannot play</source>
        <translation>Échec d&apos;ouverture du codec vidéo. Lecture impossible</translation>
    </message>
    <message>
        <source>No audio device present.</source>
        <translation>Aucun périphérique audio.</translation>
    </message>
    <message>
        <source>Could not locate an audio decoder. Cannot play</source>
        <translation>Décodeur audio introuvable. Lecture impossible</translation>
    </message>
    <message>
        <source>Could not open audio codec. Cannot play</source>
        <translation>Échec d&apos;ouverture du codec audio. Lecture impossible</translation>
    </message>
    <message>
        <source>No video or audio streams found. Cannot play</source>
        <translation>Aucun flux vidéo ou audio trouvé. Lecture impossible</translation>
    </message>
    <message>
        <source>The audio format is not supported. Cannot play</source>
        <translation>Le format audio n&apos;est pas pris en charge. Lecture impossible</translation>
    </message>
    <message>
        <source>Could not open sound device.</source>
        <translation>Échec d&apos;ouverture du périphérique audio.</translation>
    </message>
    <message>
        <source>Failed creating movie texture. Cannot play</source>
        <translation>Échec de création de la texture vidéo. Lecture impossible</translation>
    </message>
    <message>
        <source>Not enough memory to play. Cannot play</source>
        <translation>Mémoire insuffisante. Lecture impossible</translation>
    </message>
</context>
<context>
    <name>GLOverlay</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Viewpoint</source>
        <translation>Point de vue</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>Volume %1 %</source>
        <translation>Volume %1&#xa0;%</translation>
    </message>
    <message>
        <source>Sign in to watch the channels of your account</source>
        <translation>Connectez-vous pour regarder les chaînes de votre compte</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 et %n autre</numerusform>
            <numerusform>%1 et %n autres</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (Ctrl and click: close)</source>
        <translation>%1 (Ctrl et clic&#xa0;: fermer)</translation>
    </message>
    <message>
        <source>%1 (click: sound; Ctrl and click: close)</source>
        <translation>%1 (clic&#xa0;: son&#xa0;; Ctrl et clic&#xa0;: fermer)</translation>
    </message>
    <message>
        <source>Choose a channel, or drop a file or an address here</source>
        <translation>Choisissez une chaîne, ou déposez ici un fichier ou une adresse</translation>
    </message>
</context>
<context>
    <name>GLProgressIndicator</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Buffer %1 %</source>
        <translation>Tampon %1&#xa0;%</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Direct</translation>
    </message>
</context>
<context>
    <name>GLTitleBar</name>
    <message>
        <source>What plays</source>
        <translation>Lecture en cours</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Hide the channels beside the picture</source>
        <translation>Masquer les chaînes à côté de l&apos;image</translation>
    </message>
    <message>
        <source>Show the channels beside the picture</source>
        <translation>Afficher les chaînes à côté de l&apos;image</translation>
    </message>
</context>
<context>
    <name>GLVolumeControl</name>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>GLWidget</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>What plays; Tab goes to its controls</source>
        <translation>Lecture en cours&#xa0;; Tab mène à ses commandes</translation>
    </message>
    <message>
        <source>There are no channels yet</source>
        <translation>Il n&apos;y a pas encore de chaînes</translation>
    </message>
    <message>
        <source>The page could not be loaded</source>
        <translation>La page n&apos;a pas pu être chargée</translation>
    </message>
    <message>
        <source>Loading... %1 %</source>
        <translation>Chargement... %1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Start</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>&amp;First, play:</source>
        <translation>&amp;Lire d&apos;abord&#xa0;:</translation>
    </message>
    <message>
        <source>what played last</source>
        <translation>la dernière lecture</translation>
    </message>
    <message>
        <source>the first channel</source>
        <translation>la première chaîne</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>&amp;Always on top of other windows</source>
        <translation>&amp;Toujours au premier plan</translation>
    </message>
    <message>
        <source>Show the &amp;menu bar</source>
        <translation>Afficher la barre de &amp;menus</translation>
    </message>
    <message>
        <source>Show the &amp;channel bar while the pointer is over the picture</source>
        <translation>Afficher la barre de &amp;chaîne quand le pointeur est sur l&apos;image</translation>
    </message>
    <message>
        <source>Show &amp;tips over the picture</source>
        <translation>Afficher les &amp;astuces sur l&apos;image</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Captures d&apos;écran</translation>
    </message>
    <message>
        <source>Directory of screenshots</source>
        <translation>Dossier des captures d&apos;écran</translation>
    </message>
    <message>
        <source>Save them &amp;in:</source>
        <translation>En&amp;registrer dans&#xa0;:</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>Lan&amp;gue&#xa0;:</translation>
    </message>
    <message>
        <source>The language changes at the next start of Ombravision.</source>
        <translation>La langue change au prochain démarrage d&apos;Ombravision.</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>C&amp;hoisir...</translation>
    </message>
    <message>
        <source>Where the desktop keeps a list of its own of what starts with it, add &quot;ombravision -startup&quot; there.</source>
        <translation>Si le bureau tient sa propre liste de ce qu&apos;il lance avec lui, ajoutez-y «&#xa0;ombravision -startup&#xa0;».</translation>
    </message>
</context>
<context>
    <name>HttpFileDataSource</name>
    <message>
        <source>Acquiring Channel...
Please wait</source>
        <translation>Acquisition de la chaîne...
Veuillez patienter</translation>
    </message>
    <message>
        <source>The file is too long to be kept in memory</source>
        <translation>Le fichier est trop long pour être gardé en mémoire</translation>
    </message>
    <message>
        <source>Failed to open %1</source>
        <translation>Impossible d&apos;ouvrir %1</translation>
    </message>
</context>
<context>
    <name>HttpFileDownloader</name>
    <message>
        <source>The address cannot be downloaded from.</source>
        <translation>Rien ne peut être téléchargé depuis cette adresse.</translation>
    </message>
    <message>
        <source>The connection failed (%1).</source>
        <translation>La connexion a échoué (%1).</translation>
    </message>
    <message>
        <source>The server answered %1 %2.</source>
        <translation>Le serveur a répondu %1 %2.</translation>
    </message>
    <message>
        <source>The server leads to another place that cannot be used.</source>
        <translation>Le serveur renvoie vers un autre emplacement inutilisable.</translation>
    </message>
</context>
<context>
    <name>InviteDialog</name>
    <message>
        <source>Invite a Friend</source>
        <translation>Inviter un ami</translation>
    </message>
    <message>
        <source>&amp;Your letter:</source>
        <translation>&amp;Votre message&#xa0;:</translation>
    </message>
    <message>
        <source>Hello,

I watch live television with Ombravision, and thought you might like it, too. You can get it here:

%1

See you there!
</source>
        <translation>Bonjour,

Je regarde la télévision en direct avec Ombravision et j&apos;ai pensé que cela pourrait vous plaire aussi. Vous pouvez l&apos;obtenir ici&#xa0;:

%1

À bientôt&#xa0;!
</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Write a mail</source>
        <translation>Écrire un e-&amp;mail</translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation>Ombravision</translation>
    </message>
    <message>
        <source>No program for mails could be opened. Copy the letter instead.</source>
        <translation>Aucun logiciel de messagerie n&apos;a pu être ouvert. Copiez plutôt la lettre.</translation>
    </message>
</context>
<context>
    <name>KeysDialog</name>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Leave full screen, close a dialog</source>
        <translation>Quitter le plein écran, fermer un dialogue</translation>
    </message>
    <message>
        <source>1 to 9</source>
        <translation>1 à 9</translation>
    </message>
    <message>
        <source>Choose one of the open channels</source>
        <translation>Choisir une des chaînes ouvertes</translation>
    </message>
    <message>
        <source>Page up, Page down</source>
        <translation>Page préc., Page suiv.</translation>
    </message>
    <message>
        <source>Previous and next channel</source>
        <translation>Chaîne précédente et suivante</translation>
    </message>
    <message>
        <source>Ctrl with a click</source>
        <translation>Ctrl et clic</translation>
    </message>
    <message>
        <source>Open a channel beside the others, or close it</source>
        <translation>Ouvrir une chaîne à côté des autres, ou la fermer</translation>
    </message>
    <message>
        <source>Double click</source>
        <translation>Double-clic</translation>
    </message>
    <message>
        <source>Full screen on and off</source>
        <translation>Basculer le plein écran</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Molette</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Entrée</translation>
    </message>
    <message>
        <source>In &quot;Open Video Stream&quot;: open it beside what plays</source>
        <translation>Dans «&#xa0;Ouvrir un flux vidéo&#xa0;»&#xa0;: ouvrir à côté</translation>
    </message>
    <message>
        <source>Alt with a letter</source>
        <translation>Alt et une lettre</translation>
    </message>
    <message>
        <source>What has that letter underlined</source>
        <translation>L&apos;élément dont cette lettre est soulignée</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Keys and what they do</source>
        <translation>Touches et leur effet</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Touche</translation>
    </message>
    <message>
        <source>What it does</source>
        <translation>Effet</translation>
    </message>
    <message>
        <source>Tab, arrows</source>
        <translation>Tab, flèches</translation>
    </message>
    <message>
        <source>Over the picture: go through the controls</source>
        <translation>Sur l&apos;image&#xa0;: parcourir les commandes</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>In the list: play the channel</source>
        <translation>Dans la liste&#xa0;: lire la chaîne</translation>
    </message>
    <message>
        <source>In the list: open the channel beside the others</source>
        <translation>Dans la liste&#xa0;: ouvrir la chaîne à côté des autres</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>In the list: a look at the channel, and back</source>
        <translation>Dans la liste&#xa0;: aperçu de la chaîne, et retour</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>In the list: favourite or not</source>
        <translation>Dans la liste&#xa0;: favori ou non</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suppr</translation>
    </message>
    <message>
        <source>In the list: delete the channel</source>
        <translation>Dans la liste&#xa0;: supprimer la chaîne</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>Lettres</translation>
    </message>
    <message>
        <source>In the list: filter or search</source>
        <translation>Dans la liste&#xa0;: filtrer ou rechercher</translation>
    </message>
    <message>
        <source>Left, Right, Return</source>
        <translation>Gauche, Droite, Entrée</translation>
    </message>
    <message>
        <source>In the carousel: turn it, choose what is in front</source>
        <translation>Dans le carrousel&#xa0;: le faire tourner, choisir la chaîne de devant</translation>
    </message>
    <message>
        <source>Space, P</source>
        <translation>Espace, P</translation>
    </message>
    <message>
        <source>Over the picture: pause and go on</source>
        <translation>Sur l&apos;image&#xa0;: mettre en pause et reprendre</translation>
    </message>
    <message>
        <source>Menu, Shift+F10</source>
        <translation>Menu, Maj+F10</translation>
    </message>
    <message>
        <source>The menu of what is chosen</source>
        <translation>Le menu de ce qui est choisi</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Sign In</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Sign &amp;In</source>
        <translation>Se &amp;connecter</translation>
    </message>
    <message>
        <source>&amp;Keep me signed in</source>
        <translation>&amp;Rester connecté</translation>
    </message>
    <message>
        <source>I have no account yet: &amp;create one...</source>
        <translation>Pas encore de compte&#xa0;? En créer &amp;un...</translation>
    </message>
</context>
<context>
    <name>LoginManager</name>
    <message>
        <source>The service does not accept this e-mail address and password.</source>
        <translation>Le service n&apos;accepte pas cette adresse e-mail et ce mot de passe.</translation>
    </message>
    <message>
        <source>You must install the critical update</source>
        <translation>Vous devez installer la mise à jour critique</translation>
    </message>
    <message>
        <source>Your password could not be stored. You will be asked for it at the next start.</source>
        <translation>Votre mot de passe n&apos;a pas pu être enregistré. Il vous sera demandé au prochain démarrage.</translation>
    </message>
    <message>
        <source>Signing in...</source>
        <translation>Connexion en cours...</translation>
    </message>
    <message>
        <source>Creating the account...</source>
        <translation>Création du compte...</translation>
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
        <translation>A&amp;ssistance</translation>
    </message>
    <message>
        <source>&amp;Feedback</source>
        <translation>&amp;Votre avis</translation>
    </message>
    <message>
        <source>&amp;Buy Ombravision Pro</source>
        <translation>Ac&amp;heter Ombravision Pro</translation>
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
        <translation>Le service ne l&apos;a pas supprimée.</translation>
    </message>
</context>
<context>
    <name>NetworkErrors</name>
    <message>
        <source>No error</source>
        <translation>Aucune erreur</translation>
    </message>
    <message>
        <source>There was a general error</source>
        <translation>Une erreur générale s&apos;est produite</translation>
    </message>
    <message>
        <source>End of stream encountered</source>
        <translation>Fin du flux atteinte</translation>
    </message>
    <message>
        <source>Could not resolve resource</source>
        <translation>Impossible de trouver la ressource</translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation>Impossible de se connecter au serveur</translation>
    </message>
    <message>
        <source>Stream unavailable</source>
        <translation>Flux indisponible</translation>
    </message>
    <message>
        <source>Resource not available</source>
        <translation>Ressource non disponible</translation>
    </message>
    <message>
        <source>A remote server closed the connection</source>
        <translation>Un serveur distant a fermé la connexion</translation>
    </message>
    <message>
        <source>Authentication required</source>
        <translation>Authentification requise</translation>
    </message>
    <message>
        <source>Proxy authentication required</source>
        <translation>Authentification requise par le proxy</translation>
    </message>
    <message>
        <source>The operation unexpectedly succeeded</source>
        <translation>L&apos;opération a réussi de façon inattendue</translation>
    </message>
    <message>
        <source>The operation was unexpectedly redirected</source>
        <translation>L&apos;opération a été redirigée de façon inattendue</translation>
    </message>
    <message>
        <source>There was an unexpected client error</source>
        <translation>Une erreur inattendue du client s&apos;est produite</translation>
    </message>
    <message>
        <source>There was an unexpected server error</source>
        <translation>Une erreur inattendue du serveur s&apos;est produite</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Erreur inconnue</translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted</source>
        <translation>Le certificat du serveur n&apos;est pas approuvé</translation>
    </message>
    <message>
        <source>The server sends nothing that can be played</source>
        <translation>Le serveur n&apos;envoie rien qui puisse être lu</translation>
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
        <translation>&amp;Type&#xa0;:</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>as the system says</source>
        <translation>celui du système</translation>
    </message>
    <message>
        <source>HTTP</source>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>HTTP, for web pages only</source>
        <translation>HTTP, pour les pages web seulement</translation>
    </message>
    <message>
        <source>SOCKS 5</source>
        <translation>SOCKS 5</translation>
    </message>
    <message>
        <source>another (%1)</source>
        <translation>autre (%1)</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>&amp;Hôte&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation>&amp;Utilisateur&#xa0;:</translation>
    </message>
    <message>
        <source>Pass&amp;word:</source>
        <translation>&amp;Mot de passe&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Test the connection</source>
        <translation>Te&amp;ster la connexion</translation>
    </message>
    <message>
        <source>The test was ended.</source>
        <translation>Le test a été arrêté.</translation>
    </message>
    <message>
        <source>End the &amp;test</source>
        <translation>Arrêter le te&amp;st</translation>
    </message>
    <message>
        <source>Cache of channels and logos</source>
        <translation>Cache des chaînes et des logos</translation>
    </message>
    <message>
        <source>&amp;Limit:</source>
        <translation>&amp;Limite&#xa0;:</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> Mio</translation>
    </message>
    <message>
        <source>&amp;Empty the cache</source>
        <translation>&amp;Vider le cache</translation>
    </message>
    <message>
        <source>The cache is empty.</source>
        <translation>Le cache est vide.</translation>
    </message>
    <message>
        <source>Some files could not be removed; %1 are left.</source>
        <translation>Certains fichiers n&apos;ont pas pu être supprimés&#xa0;; il reste %1.</translation>
    </message>
    <message>
        <source>Asking the service...</source>
        <translation>Interrogation du service...</translation>
    </message>
    <message>
        <source>Removing...</source>
        <translation>Suppression...</translation>
    </message>
</context>
<context>
    <name>NewChannelDialog</name>
    <message>
        <source>New Channel</source>
        <translation>Nouvelle chaîne</translation>
    </message>
    <message>
        <source>Television</source>
        <translation>Télévision</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Type&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>&amp;Description&#xa0;:</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Créer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>This is no address of the network: it begins with mms://, rtsp://, http:// or the like.</source>
        <translation>Ce n&apos;est pas une adresse réseau&#xa0;: celles-ci commencent par mms://, rtsp://, http:// ou similaire.</translation>
    </message>
    <message>
        <source>Other viewers can find the channel, too.</source>
        <translation>Les autres spectateurs peuvent aussi trouver la chaîne.</translation>
    </message>
</context>
<context>
    <name>OpenStreamDialog</name>
    <message>
        <source>Open Video Stream</source>
        <translation>Ouvrir un flux vidéo</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Forget all</source>
        <translation>Tout &amp;oublier</translation>
    </message>
    <message>
        <source>Forget the addresses that were opened before</source>
        <translation>Oublier les adresses ouvertes auparavant</translation>
    </message>
    <message>
        <source>Open &amp;beside</source>
        <translation>Ouvrir à &amp;côté</translation>
    </message>
    <message>
        <source>Beside what plays (Ctrl+Return)</source>
        <translation>À côté de la lecture en cours (Ctrl+Entrée)</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ouv&amp;rir</translation>
    </message>
    <message>
        <source>What the address is</source>
        <translation>Nature de l&apos;adresse</translation>
    </message>
</context>
<context>
    <name>PanelNotice</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
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
        <translation>Pages</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vidéo</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Réseau</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Compte</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Alertes</translation>
    </message>
    <message>
        <source>Chat</source>
        <translation>Chat</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>Par &amp;défaut</translation>
    </message>
    <message>
        <source>This page as in a new installation</source>
        <translation>Cette page comme dans une nouvelle installation</translation>
    </message>
    <message>
        <source>You are not signed in. Each account keeps some of this for itself.</source>
        <translation>Vous n&apos;êtes pas connecté. Chaque compte garde une partie de ces réglages pour lui.</translation>
    </message>
</context>
<context>
    <name>PreferencesPage</name>
    <message>
        <source>Result</source>
        <translation>Résultat</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>streams of this kind cannot be recorded</source>
        <translation>les flux de ce type ne peuvent pas être enregistrés</translation>
    </message>
    <message>
        <source>the disk is too slow</source>
        <translation>le disque est trop lent</translation>
    </message>
    <message>
        <source>%1 cannot be made</source>
        <translation>impossible de créer %1</translation>
    </message>
</context>
<context>
    <name>RestfulChannelDescriptionProvider</name>
    <message>
        <source>Error parsing channels
Retrying...</source>
        <translation>Erreur d&apos;analyse des chaînes
Nouvel essai...</translation>
    </message>
</context>
<context>
    <name>SignupDialog</name>
    <message>
        <source>Create Account</source>
        <translation>Créer un compte</translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation>&amp;Créer un compte</translation>
    </message>
    <message>
        <source>Password &amp;again:</source>
        <translation>Con&amp;firmation&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Send me news about programmes and channels</source>
        <translation>Recevoir des &amp;nouvelles des programmes et des chaînes</translation>
    </message>
    <message>
        <source>Your e-mail address is your user name. It gets letters about your account and no others, unless you allow them here.</source>
        <translation>Votre adresse e-mail est votre nom d&apos;utilisateur. Elle reçoit des messages concernant votre compte et aucun autre, sauf si vous l&apos;autorisez ici.</translation>
    </message>
    <message>
        <source>This is not an e-mail address yet.</source>
        <translation>Ce n&apos;est pas encore une adresse e-mail.</translation>
    </message>
    <message>
        <source>The password needs one more character.</source>
        <translation>Il manque un caractère au mot de passe.</translation>
    </message>
    <message>
        <source>The password needs %1 more characters.</source>
        <translation>Il manque %1 caractères au mot de passe.</translation>
    </message>
    <message>
        <source>The two passwords differ.</source>
        <translation>Les deux mots de passe diffèrent.</translation>
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
        <translation>La réponse du service ne contient pas de liste de chaînes.</translation>
    </message>
</context>
<context>
    <name>SoapReply</name>
    <message>
        <source>it is no answer to %1</source>
        <translation>ce n&apos;est pas une réponse à %1</translation>
    </message>
    <message>
        <source>The answer of the service cannot be read: %1.</source>
        <translation>La réponse du service est illisible&#xa0;: %1.</translation>
    </message>
    <message>
        <source>it has a document type</source>
        <translation>elle a un type de document</translation>
    </message>
    <message>
        <source>it has too many parts</source>
        <translation>elle a trop d&apos;éléments</translation>
    </message>
    <message>
        <source>The service reports a fault and does not say which.</source>
        <translation>Le service signale une erreur sans préciser laquelle.</translation>
    </message>
</context>
<context>
    <name>SoapRequest</name>
    <message>
        <source>The answer of the service is empty.</source>
        <translation>La réponse du service est vide.</translation>
    </message>
</context>
<context>
    <name>SoapService</name>
    <message>
        <source>The address of the service is not a web address.</source>
        <translation>L&apos;adresse du service n&apos;est pas une adresse web.</translation>
    </message>
    <message>
        <source>The service at %1 is not reached over a secure connection (https). What you entered could be read on the way, so it was not sent.</source>
        <translation>Le service sur %1 n&apos;est pas joint par une connexion sécurisée (https). Votre saisie pourrait être lue en chemin&#xa0;: elle n&apos;a donc pas été envoyée.</translation>
    </message>
</context>
<context>
    <name>SoapSignup</name>
    <message>
        <source>Error parsing response</source>
        <translation>Erreur d&apos;analyse de la réponse</translation>
    </message>
    <message>
        <source>The service made no account and does not say why.</source>
        <translation>Le service n&apos;a pas créé de compte et ne dit pas pourquoi.</translation>
    </message>
</context>
<context>
    <name>SoapTransport</name>
    <message>
        <source>The service did not answer in time.</source>
        <translation>Le service n&apos;a pas répondu à temps.</translation>
    </message>
    <message>
        <source>What you entered has a character that cannot be sent.</source>
        <translation>Votre saisie contient un caractère qui ne peut pas être envoyé.</translation>
    </message>
    <message>
        <source>The program is closing.</source>
        <translation>Le programme se ferme.</translation>
    </message>
    <message>
        <source>The answer of the service is too long.</source>
        <translation>La réponse du service est trop longue.</translation>
    </message>
    <message>
        <source>The service at %1 cannot prove who it is: %2</source>
        <translation>Le service sur %1 ne peut pas prouver son identité&#xa0;: %2</translation>
    </message>
    <message>
        <source>The service answered with the status %1.</source>
        <translation>Le service a répondu par le code d&apos;état %1.</translation>
    </message>
</context>
<context>
    <name>SoundPage</name>
    <message>
        <source>Device</source>
        <translation>Périphérique</translation>
    </message>
    <message>
        <source>&amp;Sound goes to:</source>
        <translation>&amp;Sortie du son&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Play a test tone</source>
        <translation>&amp;Jouer un son de test</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>&amp;Volume:</source>
        <translation>&amp;Volume&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Mute</source>
        <translation>&amp;Muet</translation>
    </message>
    <message>
        <source>%1 (system)</source>
        <translation>%1 (système)</translation>
    </message>
    <message>
        <source>%1 (not there now)</source>
        <translation>%1 (absent actuellement)</translation>
    </message>
    <message>
        <source>The tone was played. If you heard nothing, look at the volume of the device itself.</source>
        <translation>Le son a été joué. Si vous n&apos;avez rien entendu, vérifiez le volume du périphérique lui-même.</translation>
    </message>
    <message>
        <source>The tone was played where the system sends sound.</source>
        <translation>Le son a été joué sur la sortie choisie par le système.</translation>
    </message>
    <message>
        <source>The device could not be opened. Another program may be using it alone.</source>
        <translation>Le périphérique n&apos;a pas pu être ouvert. Un autre programme en a peut-être l&apos;usage exclusif.</translation>
    </message>
    <message>
        <source>The device was opened but played nothing.</source>
        <translation>Le périphérique a été ouvert mais n&apos;a rien joué.</translation>
    </message>
    <message>
        <source>Playing...</source>
        <translation>Lecture...</translation>
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
        <translation>Informations d&apos;assistance</translation>
    </message>
    <message>
        <source>This is what helps the &amp;support to find out what is wrong. It has no passwords and no e-mail addresses. Read it, then give it to whom you like: nothing is sent from here.</source>
        <translation>Voici ce qui aide l&apos;&amp;assistance à trouver le problème. Il n&apos;y a ni mots de passe ni adresses e-mail. Lisez-le, puis donnez-le à qui vous voulez&#xa0;: rien n&apos;est envoyé d&apos;ici.</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Résultat</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Copié.</translation>
    </message>
    <message>
        <source>Save Support Information</source>
        <translation>Enregistrer les informations d&apos;assistance</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Enregistré sous %1.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossible d&apos;écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>&amp;Enregistrer sous...</translation>
    </message>
    <message>
        <source>Gathering...</source>
        <translation>Collecte...</translation>
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
        <source>C&amp;lear</source>
        <translation>E&amp;ffacer</translation>
    </message>
    <message>
        <source>&amp;Go from channel to channel and see whether each plays</source>
        <translation>&amp;Passer d&apos;une chaîne à l&apos;autre et vérifier que chacune est lue</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Time for each:</source>
        <translation>&amp;Durée par chaîne&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Play a sound when one fails</source>
        <translation>&amp;Jouer un son en cas d&apos;échec</translation>
    </message>
    <message>
        <source>What was found out</source>
        <translation>Résultats</translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s) tested</source>
        <translation>
            <numerusform>%n chaîne testée</numerusform>
            <numerusform>%n chaînes testées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n échec</numerusform>
            <numerusform>%n échecs</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Save Test Events</source>
        <translation>Enregistrer les événements</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Enregistré sous %1.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossible d&apos;écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>&amp;Save as...</source>
        <translation>&amp;Enregistrer sous...</translation>
    </message>
</context>
<context>
    <name>TestEventModel</name>
    <message>
        <source>It plays.</source>
        <translation>Lecture OK.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Chaîne</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Événement</translation>
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
        <translation>Tutoriel</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Bienvenue</translation>
    </message>
    <message>
        <source>Over the picture</source>
        <translation>Sur l&apos;image</translation>
    </message>
    <message>
        <source>Move the pointer over the picture, and the controls appear: volume, mute, previous and next channel, full screen. They go by themselves once the pointer rests.</source>
        <translation>Passez le pointeur sur l&apos;image et les commandes apparaissent&#xa0;: volume, muet, chaîne précédente et suivante, plein écran. Elles disparaissent d&apos;elles-mêmes dès que le pointeur s&apos;immobilise.</translation>
    </message>
    <message>
        <source>Several at once</source>
        <translation>Plusieurs à la fois</translation>
    </message>
    <message>
        <source>Hold Ctrl and click another channel to watch it beside the first. A click on a picture gives it the sound, and Ctrl with a click closes it.</source>
        <translation>Maintenez Ctrl et cliquez sur une autre chaîne pour la regarder à côté de la première. Un clic sur une image lui donne le son, et Ctrl avec un clic la ferme.</translation>
    </message>
    <message>
        <source>Keep and find</source>
        <translation>Garder et trouver</translation>
    </message>
    <message>
        <source>Record what plays, keep a picture of it, or turn the carousel to see all channels at once. All of it is in the menus, with its keys.</source>
        <translation>Enregistrez la chaîne, gardez-en une image ou tournez le carrousel pour voir toutes les chaînes à la fois. Tout est dans les menus, avec les touches.</translation>
    </message>
    <message>
        <source>Make it yours</source>
        <translation>À votre goût</translation>
    </message>
    <message>
        <source>Sign in to have your channels and settings wherever you are. The preferences change at once, and Help has a table of all keys. You find this tutorial there, too.</source>
        <translation>Connectez-vous pour retrouver vos chaînes et vos réglages partout. Les préférences s&apos;appliquent aussitôt, et l&apos;aide contient un tableau de toutes les touches. Vous y trouverez aussi ce tutoriel.</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Terminer</translation>
    </message>
    <message>
        <source>Ombravision plays live television from all over the world. The tab &quot;Channels&quot; has your channels, and &quot;Search&quot; finds more. Choose one, and it plays.</source>
        <translation>Ombravision vous fait regarder la télévision en direct du monde entier. L&apos;onglet «&#xa0;Chaînes&#xa0;» contient vos chaînes, et «&#xa0;Recherche&#xa0;» en trouve d&apos;autres. Choisissez-en une, et la lecture commence.</translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>You must install the critical update to version %1 before you can sign in again.</source>
        <translation>Vous devez installer la mise à jour critique vers la version %1 avant de pouvoir vous reconnecter.</translation>
    </message>
    <message>
        <source>Version %1 of Ombravision is available.</source>
        <translation>La version %1 d&apos;Ombravision est disponible.</translation>
    </message>
    <message>
        <source>It can be downloaded from %1.</source>
        <translation>Elle peut être téléchargée sur %1.</translation>
    </message>
    <message>
        <source>The service names no safe address to download it from.</source>
        <translation>Le service n&apos;indique aucune adresse sûre pour la télécharger.</translation>
    </message>
    <message>
        <source>MD5 sum of the file: %1</source>
        <translation>Somme MD5 du fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Download</source>
        <translation>&amp;Télécharger</translation>
    </message>
    <message>
        <source>What is new</source>
        <translation>Nouveautés</translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Impossible d&apos;ouvrir la page&#xa0;: %1</translation>
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
        <translation>C&amp;haîne&#xa0;:</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>Transport:</source>
        <translation>Transport&#xa0;:</translation>
    </message>
    <message>
        <source>Picture:</source>
        <translation>Image&#xa0;:</translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation>Son&#xa0;:</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Images&#xa0;:</translation>
    </message>
    <message>
        <source>Packets lost:</source>
        <translation>Paquets perdus&#xa0;:</translation>
    </message>
    <message>
        <source>Buffer:</source>
        <translation>Tampon&#xa0;:</translation>
    </message>
    <message>
        <source>Bit rate:</source>
        <translation>Débit&#xa0;:</translation>
    </message>
    <message>
        <source>Offset of the sound:</source>
        <translation>Décalage du son&#xa0;:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Temps&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>%1, %2 x %3, %4 per second</source>
        <translation>%1, %2 x %3, %4 par seconde</translation>
    </message>
    <message numerus="yes">
        <source>%1, %2 Hz, %n channel(s)</source>
        <translation>
            <numerusform>%1, %2&#xa0;Hz, %n canal</numerusform>
            <numerusform>%1, %2&#xa0;Hz, %n canaux</numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>%1 ms before the picture</source>
        <translation>%1&#xa0;ms avant l&apos;image</translation>
    </message>
    <message>
        <source>%1 ms after the picture</source>
        <translation>%1&#xa0;ms après l&apos;image</translation>
    </message>
    <message>
        <source>No open channel</source>
        <translation>Aucune chaîne ouverte</translation>
    </message>
    <message>
        <source>%1 shown, %2 dropped</source>
        <translation>%1 affichées, %2 ignorées</translation>
    </message>
    <message>
        <source>%1 of the picture, %2 of the sound</source>
        <translation>%1 pour l&apos;image, %2 pour le son</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1&#xa0;kbit/s</translation>
    </message>
    <message>
        <source>%1 of %2 s</source>
        <translation>%1 sur %2&#xa0;s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1&#xa0;s</translation>
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
        <translation>Image</translation>
    </message>
    <message>
        <source>&amp;Size of the picture:</source>
        <translation>&amp;Taille de l&apos;image&#xa0;:</translation>
    </message>
    <message>
        <source>as large as fits</source>
        <translation>ajustée à la fenêtre</translation>
    </message>
    <message>
        <source>fills the window, cut off at the edges</source>
        <translation>remplit la fenêtre, bords coupés</translation>
    </message>
    <message>
        <source>stretched to the window</source>
        <translation>étirée à la fenêtre</translation>
    </message>
    <message>
        <source>half its own size</source>
        <translation>demi-taille</translation>
    </message>
    <message>
        <source>its own size</source>
        <translation>taille réelle</translation>
    </message>
    <message>
        <source>twice its own size</source>
        <translation>double taille</translation>
    </message>
    <message>
        <source>Smooth the &amp;edges of what is drawn (antialiasing)</source>
        <translation>&amp;Lisser les contours des tracés (anticrénelage)</translation>
    </message>
    <message>
        <source>Graphics card</source>
        <translation>Carte graphique</translation>
    </message>
    <message>
        <source>&amp;Convert colours on the graphics card</source>
        <translation>&amp;Convertir les couleurs sur la carte graphique</translation>
    </message>
    <message>
        <source>&amp;By means of:</source>
        <translation>&amp;Méthode&#xa0;:</translation>
    </message>
    <message>
        <source>the best that the driver offers</source>
        <translation>la meilleure qu&apos;offre le pilote</translation>
    </message>
    <message>
        <source>a shader</source>
        <translation>un shader</translation>
    </message>
    <message>
        <source>a fragment program</source>
        <translation>un programme de fragments</translation>
    </message>
    <message>
        <source>the processor</source>
        <translation>le processeur</translation>
    </message>
    <message>
        <source>&amp;Pictures reach the screen by:</source>
        <translation>&amp;Affichage des images par&#xa0;:</translation>
    </message>
    <message>
        <source>what is fastest here</source>
        <translation>le plus rapide ici</translation>
    </message>
    <message>
        <source>OpenGL</source>
        <translation>OpenGL</translation>
    </message>
    <message>
        <source>shared memory</source>
        <translation>mémoire partagée</translation>
    </message>
    <message>
        <source>Changes other than the size open the channels that play again, which takes a moment.</source>
        <translation>Toute modification autre que la taille rouvre les chaînes en cours de lecture, ce qui prend un instant.</translation>
    </message>
    <message>
        <source>De&amp;interlace pictures that are made of two fields</source>
        <translation>Désentrelacer les &amp;images à deux trames</translation>
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
        <translation>Cliquez sur son icône pour continuer à regarder. «&#xa0;Quitter&#xa0;» dans son menu ferme le programme.</translation>
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
        <translation>%1 (volume %2&#xa0;%)</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Chaînes</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Recherche</translation>
    </message>
    <message>
        <source>The page could not be opened: %1</source>
        <translation>Impossible d&apos;ouvrir la page&#xa0;: %1</translation>
    </message>
    <message>
        <source>Signing in...</source>
        <translation>Connexion en cours...</translation>
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
    <message>
        <source>Open Video Stream</source>
        <translation>Ouvrir un flux vidéo</translation>
    </message>
    <message>
        <source>Open Latte Stream</source>
        <translation>Ouvrir un flux Latte</translation>
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
        <translation>Afficha&amp;ge</translation>
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
    <message>
        <source>To the menus</source>
        <translation>Vers les menus</translation>
    </message>
    <message>
        <source>Previous Channel</source>
        <translation>Chaîne précédente</translation>
    </message>
    <message>
        <source>Next Channel</source>
        <translation>Chaîne suivante</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
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
        <translation>%1&#xa0;%</translation>
    </message>
</context>
</TS>
