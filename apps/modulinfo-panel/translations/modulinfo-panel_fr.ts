<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>ActivityLight</name>
    <message>
        <source>Ready</source>
        <extracomment>State of the program: nothing is in progress</extracomment>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Accessing the module</source>
        <translation>Échange avec le module en cours</translation>
    </message>
    <message>
        <source>The module could not be read</source>
        <translation>Le module n&apos;a pas pu être lu</translation>
    </message>
    <message>
        <source>Reading the status continuously</source>
        <translation>Actualisation de l&apos;état en cours</translation>
    </message>
    <message>
        <source>No port or reader found</source>
        <translation>Aucun port ni lecteur trouvé</translation>
    </message>
    <message>
        <source>Host busy</source>
        <extracomment>This program is at work on a record; the control waits</extracomment>
        <translation>Travail du programme hôte</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <extracomment>Title of a column: when the event happened</extracomment>
        <translation>Heure</translation>
    </message>
    <message>
        <source>From</source>
        <extracomment>Title of a column: the object that the event came from</extracomment>
        <translation>Origine</translation>
    </message>
    <message>
        <source>Event</source>
        <extracomment>Title of a column: the callback or call with its arguments</extracomment>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Result</source>
        <extracomment>Title of a column: what the call returned, or its error</extracomment>
        <translation>Résultat</translation>
    </message>
    <message>
        <source>ms</source>
        <extracomment>Title of a column: the duration of the call in milliseconds</extracomment>
        <translation>ms</translation>
    </message>
    <message>
        <source>Older events dropped: %1.</source>
        <translation>Événements plus anciens supprimés&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>EventWindow</name>
    <message>
        <source>Events</source>
        <translation>Événements</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Enregistrer…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>Co&amp;pier</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <extracomment>Removes all events</extracomment>
        <translation>&amp;Vider</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Save</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Fichiers texte (*.txt)</translation>
    </message>
</context>
<context>
    <name>PanelMenu</name>
    <message>
        <source>&amp;File</source>
        <extracomment>A menu</extracomment>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Open record…</source>
        <translation>&amp;Ouvrir un relevé…</translation>
    </message>
    <message>
        <source>&amp;Save record…</source>
        <translation>&amp;Enregistrer le relevé…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Enregistrer en P&amp;DF…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimer…</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Copier en texte</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <extracomment>A menu: reads the module, transfers its parameters</extracomment>
        <translation>&amp;Module</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <extracomment>A menu: windows besides the panel</extracomment>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <extracomment>Shows or hides the window that lists the events</extracomment>
        <translation>É&amp;vénements</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu</extracomment>
        <translation>A&amp;ide</translation>
    </message>
</context>
<context>
    <name>PanelWindow</name>
    <message>
        <source>No module has been read: nothing to save, print or copy.</source>
        <translation>Aucun module n&apos;a été lu&#xa0;: rien à enregistrer, à imprimer ou à copier.</translation>
    </message>
    <message>
        <source>No help viewer is installed: the help is shown in the browser.</source>
        <translation>Aucun programme d&apos;aide installé&#xa0;: l&apos;aide s&apos;affiche dans le navigateur.</translation>
    </message>
    <message>
        <source>No program for showing the help is installed.</source>
        <translation>Aucun programme installé ne peut afficher l&apos;aide.</translation>
    </message>
    <message>
        <source>No port or reader found. Connect one and restart the program.</source>
        <translation>Aucun port ni lecteur trouvé. Branchez-en un et redémarrez le programme.</translation>
    </message>
    <message>
        <source>The module matches. This program has no parameters to transfer.</source>
        <extracomment>The module read is of the kind that the host expects</extracomment>
        <translation>Le module convient. Ce programme n&apos;a pas de paramètres à lui transférer.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Module information</source>
        <extracomment>The program&apos;s name in the titles of its windows</extracomment>
        <translation>Informations du module</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Not in the catalogue</source>
        <translation>Absent du catalogue</translation>
    </message>
    <message>
        <source>Known; no entry for this firmware</source>
        <translation>Connu, version firmware impossible à situer</translation>
    </message>
    <message>
        <source>Known; the firmware is newer than the catalogue</source>
        <translation>Connu, firmware plus récent que le catalogue</translation>
    </message>
    <message>
        <source>Known with this firmware</source>
        <translation>Connu avec ce firmware</translation>
    </message>
    <message>
        <source>Known; the firmware is older than the catalogue</source>
        <translation>Connu, firmware plus ancien que le catalogue</translation>
    </message>
    <message>
        <source>The catalogue could not be used</source>
        <translation>Le catalogue n&apos;a pas pu être utilisé</translation>
    </message>
    <message>
        <source>Status word / LED word</source>
        <translation>Mot d&apos;état / mot LED</translation>
    </message>
    <message>
        <source>Status line</source>
        <extracomment>The line of the panel that reports what the control does</extracomment>
        <translation>Ligne d&apos;état</translation>
    </message>
    <message>
        <source>Path</source>
        <extracomment>How the module was accessed: Modbus, HART or NFC</extracomment>
        <translation>Transmission</translation>
    </message>
    <message>
        <source>Entry</source>
        <extracomment>Whether the catalogue knows the module</extracomment>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Page du produit</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Fiche technique</translation>
    </message>
    <message>
        <source>Package leaflet</source>
        <extracomment>The instructions that come with the module</extracomment>
        <translation>Notice jointe</translation>
    </message>
    <message>
        <source>Module</source>
        <extracomment>Heading above name, description, serial number and firmware</extracomment>
        <translation>Module</translation>
    </message>
    <message>
        <source>Identification</source>
        <extracomment>Heading above the identification words of the module</extracomment>
        <translation>Identification</translation>
    </message>
    <message>
        <source>Connection</source>
        <extracomment>Heading above port, path, rate and address</extracomment>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Catalogue</source>
        <extracomment>Heading above the entry of the device catalogue</extracomment>
        <translation>Catalogue</translation>
    </message>
    <message>
        <source>d MMMM yyyy, HH:mm:ss (t)</source>
        <extracomment>Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024, 08:04:59 (UTC+02:00)</extracomment>
        <translation>d MMMM yyyy, HH:mm:ss (t)</translation>
    </message>
    <message>
        <source>Recorded</source>
        <extracomment>Caption of the time at which the module was read</extracomment>
        <translation>Date du relevé</translation>
    </message>
    <message>
        <source>Module record</source>
        <translation>Relevé du module</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <extracomment>A caption and its value</extracomment>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
</context>
<context>
    <name>RecordDesk</name>
    <message>
        <source>Module records (*.json)</source>
        <translation>Relevés de modules (*.json)</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <extracomment>%1: a file</extracomment>
        <translation>Enregistré sous %1</translation>
    </message>
    <message>
        <source>Copied as text</source>
        <translation>Copié en texte</translation>
    </message>
    <message>
        <source>Save record</source>
        <translation>Enregistrer le relevé</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Enregistrer en PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>Fichiers PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Print: %1</source>
        <extracomment>Title of the preview; %1: the name of the module</extracomment>
        <translation>Imprimer&#xa0;: %1</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Ouvrir un relevé</translation>
    </message>
</context>
<context>
    <name>RecordError</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>Impossible de lire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <extracomment>%2: the cause as the system words it</extracomment>
        <translation>Impossible d&apos;écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is not a module record: it is larger than %2 KB.</source>
        <translation>%1 n&apos;est pas un relevé de module&#xa0;: le fichier dépasse %2 Ko.</translation>
    </message>
    <message>
        <source>%1 is not a module record: invalid JSON at line %2, column %3 (%4).</source>
        <extracomment>%4: the cause as the JSON parser words it</extracomment>
        <translation>%1 n&apos;est pas un relevé de module&#xa0;: pas de JSON à la ligne %2, colonne %3 (%4).</translation>
    </message>
    <message>
        <source>%1 is not a module record: its format is not %2.</source>
        <extracomment>%2: the name of the format</extracomment>
        <translation>%1 n&apos;est pas un relevé de module&#xa0;: son format n&apos;est pas %2.</translation>
    </message>
    <message>
        <source>%1 was written by a newer program: it has version %2; this program reads up to version %3.</source>
        <extracomment>%2 and %3: version numbers</extracomment>
        <translation>%1 provient d&apos;un programme plus récent&#xa0;: version %2, ce programme lit jusqu&apos;à la version %3.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is missing.</source>
        <extracomment>%2: the name of the field</extracomment>
        <translation>%1 est un relevé de module endommagé&#xa0;: le champ %2 manque.</translation>
    </message>
    <message>
        <source>%1 is a damaged module record: the field %2 is %3 but must be %4.</source>
        <extracomment>%2: the name of the field, %3: its value, %4: what it must be, such as &quot;an object&quot;</extracomment>
        <translation>%1 est un relevé de module endommagé&#xa0;: le champ %2 vaut %3 et doit être %4.</translation>
    </message>
    <message>
        <source>an object</source>
        <extracomment>… but must be an object</extracomment>
        <translation>un objet</translation>
    </message>
    <message>
        <source>a text</source>
        <extracomment>… but must be a text</extracomment>
        <translation>un texte</translation>
    </message>
    <message>
        <source>true or false</source>
        <extracomment>… but must be true or false. Both words stand in the file as they are here.</extracomment>
        <translation>true ou false</translation>
    </message>
    <message>
        <source>a date and time</source>
        <extracomment>… but must be a date and time</extracomment>
        <translation>une date avec heure</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <extracomment>… but must be a whole number from %1 to %2</extracomment>
        <translation>un nombre entier de %1 à %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <extracomment>… but must be one of %1. %1: the words that may stand in the file</extracomment>
        <translation>l&apos;un de %1</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Record: %1</source>
        <extracomment>Title of a window; &quot;record&quot; is a noun, %1: its file</extracomment>
        <translation>Relevé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Record of %1 from the file %2: not the current state of the module.</source>
        <extracomment>%1: the date and time of the record, %2: its file</extracomment>
        <translation>Relevé du %1 provenant du fichier %2&#xa0;: ce n&apos;est pas l&apos;état actuel du module.</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimer…</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Enregistrer en P&amp;DF…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>Co&amp;pier</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
</context>
</TS>
