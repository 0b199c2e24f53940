<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Audio</name>
    <message>
        <source>no sound library</source>
        <translation>keine Tonbibliothek</translation>
    </message>
    <message>
        <source>no sound server</source>
        <translation>kein Tonserver</translation>
    </message>
</context>
<context>
    <name>Exchange</name>
    <message>
        <source>the file is no UTF-8 text</source>
        <translation>die Datei ist kein UTF-8-Text</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>it is no regular file</source>
        <translation>das ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>it is too large to be a file of notes</source>
        <translation>zu groß für eine Datei mit Notizen</translation>
    </message>
    <message>
        <source>it holds no notes</source>
        <translation>darin sind keine Notizen</translation>
    </message>
    <message>
        <source>none of its notes can be read: %1</source>
        <translation>keine der Notizen darin ist lesbar: %1</translation>
    </message>
    <message>
        <source>what cannot be read (%1): %2</source>
        <translation>was nicht lesbar ist (%1): %2</translation>
    </message>
    <message>
        <source>“%1” cannot be read</source>
        <translation>„%1“ ist nicht lesbar</translation>
    </message>
    <message>
        <source>“%1” is missing</source>
        <translation>„%1“ fehlt</translation>
    </message>
    <message>
        <source>“END:%1” has no beginning</source>
        <translation>„END:%1“ hat keinen Anfang</translation>
    </message>
    <message>
        <source>to-do %1: %2</source>
        <translation>Aufgabe %1: %2</translation>
    </message>
    <message>
        <source>the file ends inside “%1”</source>
        <translation>die Datei endet mitten in „%1“</translation>
    </message>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Markdown</source>
        <translation>Markdown</translation>
    </message>
    <message>
        <source>the folder holds no notes of a program that is known here</source>
        <translation>der Ordner enthält keine Notizen eines hier bekannten Programms</translation>
    </message>
    <message>
        <source>a database can only be read from its file</source>
        <translation>eine Datenbank lässt sich nur aus ihrer Datei lesen</translation>
    </message>
    <message>
        <source>From %1: %2 notes, %3 of them new</source>
        <translation>Aus %1: %2 Notizen, davon neu: %3</translation>
    </message>
    <message>
        <source>Here already, and left as they are: %1</source>
        <translation>Schon hier, bleiben wie sie sind: %1</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Erledigt: %1</translation>
    </message>
    <message>
        <source>With a date: %1</source>
        <translation>Mit Datum: %1</translation>
    </message>
    <message>
        <source>Stays behind: %1</source>
        <translation>Bleibt zurück: %1</translation>
    </message>
    <message>
        <source>“%1” is no list</source>
        <translation>„%1“ ist keine Liste</translation>
    </message>
    <message>
        <source>%1 is no object</source>
        <translation>%1 ist kein Objekt</translation>
    </message>
    <message>
        <source>the file is no JSON: %1 at byte %2</source>
        <translation>die Datei ist kein JSON: %1 bei Byte %2</translation>
    </message>
    <message>
        <source>the file is no export of Tarnwick</source>
        <translation>die Datei ist kein Export von Tarnwick</translation>
    </message>
    <message>
        <source>the file was written by a newer version of Tarnwick</source>
        <translation>die Datei stammt von einer neueren Version von Tarnwick</translation>
    </message>
    <message>
        <source>“%1” has a value that does not fit</source>
        <translation>„%1“ hat einen Wert, der nicht passt</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>the file holds no notes</source>
        <translation>die Datei enthält keine Notizen</translation>
    </message>
    <message>
        <source>the comment behind the note cannot be read</source>
        <translation>der Kommentar hinter der Notiz ist nicht lesbar</translation>
    </message>
    <message>
        <source>the database cannot be opened</source>
        <translation>die Datenbank lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>the database is damaged</source>
        <translation>die Datenbank ist beschädigt</translation>
    </message>
    <message>
        <source>the database holds no table of sticky notes</source>
        <translation>die Datenbank enthält keine Tabelle mit Haftnotizen</translation>
    </message>
    <message>
        <source>pictures, and places and sizes of windows</source>
        <translation>Bilder sowie Lage und Größe der Fenster</translation>
    </message>
    <message>
        <source>text styles</source>
        <translation>Textstile</translation>
    </message>
    <message>
        <source>places and sizes of windows</source>
        <translation>Lage und Größe der Fenster</translation>
    </message>
    <message>
        <source>it is no note of Tomboy&apos;s form</source>
        <translation>das ist keine Notiz in der Form von Tomboy</translation>
    </message>
    <message>
        <source>text styles and links</source>
        <translation>Textstile und Verweise</translation>
    </message>
    <message>
        <source>links between notes</source>
        <translation>Verweise zwischen Notizen</translation>
    </message>
    <message>
        <source>fonts and text styles</source>
        <translation>Schriften und Textstile</translation>
    </message>
    <message>
        <source>fonts</source>
        <translation>Schriften</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>no session bus</source>
        <translation>kein Sitzungsbus</translation>
    </message>
    <message>
        <source>the desktop portal has no global shortcuts</source>
        <translation>das Desktop-Portal kennt keine globalen Tastenkürzel</translation>
    </message>
    <message>
        <source>the desktop refused global shortcuts</source>
        <translation>die Arbeitsumgebung hat globale Tastenkürzel abgelehnt</translation>
    </message>
    <message>
        <source>Show or hide the board</source>
        <translation>Brett zeigen oder verbergen</translation>
    </message>
</context>
<context>
    <name>LoginItem</name>
    <message>
        <source>The autostart folder cannot be made.</source>
        <translation>Der Autostart-Ordner lässt sich nicht anlegen.</translation>
    </message>
</context>
<context>
    <name>NoteDisplayMode</name>
    <message>
        <source>Always on Top</source>
        <translation>Immer im Vordergrund</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Schreibtisch</translation>
    </message>
    <message>
        <source>Ghost</source>
        <translation>Geist</translation>
    </message>
    <message>
        <source>Floats above all apps, including fullscreen</source>
        <translation>Schwebt über allen Programmen, auch im Vollbild</translation>
    </message>
    <message>
        <source>Sits on wallpaper, below other windows</source>
        <translation>Liegt auf dem Hintergrundbild, unter anderen Fenstern</translation>
    </message>
    <message>
        <source>See-through for you, invisible in screenshots and screen shares. Clicks pass through; hold ⌥ to grab.</source>
        <translation>Für dich durchscheinend, unsichtbar in Bildschirmfotos und geteilten Bildschirmen. Klicks gehen hindurch; mit ⌥ greifen.</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>no session bus</source>
        <translation>kein Sitzungsbus</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>this desktop shows no notifications</source>
        <translation>diese Arbeitsumgebung zeigt keine Benachrichtigungen</translation>
    </message>
</context>
<context>
    <name>PaperColor</name>
    <message>
        <source>Lemon</source>
        <translation>Zitrone</translation>
    </message>
    <message>
        <source>Coral</source>
        <translation>Koralle</translation>
    </message>
    <message>
        <source>Apricot</source>
        <translation>Aprikose</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Minze</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Himmel</translation>
    </message>
    <message>
        <source>Cobalt</source>
        <translation>Kobalt</translation>
    </message>
    <message>
        <source>Orchid</source>
        <translation>Orchidee</translation>
    </message>
</context>
<context>
    <name>PaperTheme</name>
    <message>
        <source>Plain Paper</source>
        <translation>Blankes Papier</translation>
    </message>
    <message>
        <source>Graph Paper</source>
        <translation>Karopapier</translation>
    </message>
    <message>
        <source>Lined Notebook</source>
        <translation>Liniertes Heft</translation>
    </message>
    <message>
        <source>Parchment</source>
        <translation>Pergament</translation>
    </message>
    <message>
        <source>Dark Craft</source>
        <translation>Dunkles Packpapier</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>needs an X11 display</source>
        <translation>braucht eine X11-Anzeige</translation>
    </message>
    <message>
        <source>no feedback service</source>
        <translation>kein Dienst für Rückmeldungen</translation>
    </message>
    <message>
        <source>no PipeWire in this session</source>
        <translation>kein PipeWire in dieser Sitzung</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>no session bus</source>
        <translation>kein Sitzungsbus</translation>
    </message>
</context>
<context>
    <name>Recurrence</name>
    <message>
        <source>Does not repeat</source>
        <translation>Einmalig</translation>
    </message>
    <message>
        <source>Every day</source>
        <translation>Jeden Tag</translation>
    </message>
    <message>
        <source>Every weekday</source>
        <translation>Jeden Werktag</translation>
    </message>
    <message>
        <source>Every week</source>
        <translation>Jede Woche</translation>
    </message>
    <message>
        <source>Every 3 days</source>
        <translation>Alle 3 Tage</translation>
    </message>
    <message>
        <source>Every month</source>
        <translation>Jeden Monat</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>The notes in “%1” cannot be read: the file is damaged, or it is no Tarnwick store. It was left as it is; copies of the last days are in “backups” beside it.</source>
        <translation>Die Notizen in „%1“ sind nicht lesbar: die Datei ist beschädigt oder kein Speicher von Tarnwick. Sie blieb, wie sie ist; Kopien der letzten Tage liegen daneben in „backups“.</translation>
    </message>
    <message>
        <source>The notes in “%1” were written by a newer version of Tarnwick.</source>
        <translation>Die Notizen in „%1“ stammen von einer neueren Version von Tarnwick.</translation>
    </message>
    <message>
        <source>Tarnwick may not write to “%1”.</source>
        <translation>Tarnwick darf nicht nach „%1“ schreiben.</translation>
    </message>
    <message>
        <source>No space is left on the disk that holds “%1”.</source>
        <translation>Auf der Platte mit „%1“ ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>The notes in “%1” are in use by another program.</source>
        <translation>Die Notizen in „%1“ werden von einem anderen Programm benutzt.</translation>
    </message>
    <message>
        <source>The notes in “%1” cannot be used: %2</source>
        <translation>Die Notizen in „%1“ sind nicht nutzbar: %2</translation>
    </message>
</context>
<context>
    <name>TaskStamp</name>
    <message>
        <source>No Stamp</source>
        <translation>Kein Stempel</translation>
    </message>
    <message>
        <source>URGENT</source>
        <translation>EILT</translation>
    </message>
    <message>
        <source>FOCUS</source>
        <translation>FOKUS</translation>
    </message>
    <message>
        <source>PRIORITY</source>
        <translation>WICHTIG</translation>
    </message>
    <message>
        <source>STAR</source>
        <translation>STERN</translation>
    </message>
    <message>
        <source>IDEA</source>
        <translation>IDEE</translation>
    </message>
    <message>
        <source>APPROVED</source>
        <translation>GENEHMIGT</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>The settings could not be written to “%1”: %2</source>
        <translation>Die Einstellungen konnten nicht nach „%1“ geschrieben werden: %2</translation>
    </message>
    <message>
        <source>a file that cannot be read is in the way</source>
        <translation>eine nicht lesbare Datei ist im Weg</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPane</name>
    <message>
        <source>Check for updates automatically</source>
        <translation>Automatisch nach neuen Versionen sehen</translation>
    </message>
    <message>
        <source>Reads one small version file. Nothing about you or your notes is sent.</source>
        <translation>Liest eine kleine Versionsdatei. Nichts über dich oder deine Notizen wird gesendet.</translation>
    </message>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Tastatur</translation>
    </message>
    <message>
        <source>Pick a note</source>
        <translation>Notiz auswählen</translation>
    </message>
    <message>
        <source>Edit selected note</source>
        <translation>Gewählte Notiz bearbeiten</translation>
    </message>
    <message>
        <source>Crush selected note</source>
        <translation>Gewählte Notiz zerknüllen</translation>
    </message>
    <message>
        <source>Undo crush</source>
        <translation>Zerknüllen zurücknehmen</translation>
    </message>
    <message>
        <source>⌘ is Super or Ctrl, ⌥ is Alt, ⇧ is Shift.</source>
        <translation>⌘ ist Super oder Strg, ⌥ ist Alt, ⇧ ist Umschalt.</translation>
    </message>
    <message>
        <source>Web site</source>
        <translation>Webseite</translation>
    </message>
</context>
<context>
    <name>tarnwick::AddTaskView</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Stick Note</source>
        <translation>Notiz ankleben</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Neue Notiz</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppDelegate</name>
    <message>
        <source>the store is not open yet</source>
        <translation>der Speicher ist noch nicht offen</translation>
    </message>
    <message>
        <source>this desktop shows no tray</source>
        <translation>diese Arbeitsumgebung zeigt kein Symbolfeld</translation>
    </message>
    <message>
        <source>the chord could not be registered</source>
        <translation>das Tastenkürzel ließ sich nicht anmelden</translation>
    </message>
    <message>
        <source>Tarnwick is running</source>
        <translation>Tarnwick läuft</translation>
    </message>
    <message>
        <source>This desktop shows no tray. Open the board with %1, with the command &quot;tarnwick toggle&quot;, or with Tarnwick&apos;s icon in the launcher.</source>
        <translation>Diese Arbeitsumgebung zeigt kein Symbolfeld. Das Brett öffnet sich mit %1, mit dem Befehl „tarnwick toggle“ oder mit dem Symbol von Tarnwick im Programmstarter.</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppPinChip</name>
    <message>
        <source>Pin to an app</source>
        <translation>An App heften</translation>
    </message>
    <message>
        <source>Pin to %1</source>
        <translation>An %1 heften</translation>
    </message>
    <message>
        <source>Switch to an app first, then pin a note to it</source>
        <translation>Erst zu einem Programm wechseln, dann eine Notiz daran heften</translation>
    </message>
    <message>
        <source>Show this note only while %1 is in front, docked to its window</source>
        <translation>Diese Notiz nur zeigen, solange %1 vorn ist, an dessen Fenster angedockt</translation>
    </message>
    <message>
        <source>Repository %1 (%2)</source>
        <translation>Repository %1 (%2)</translation>
    </message>
    <message>
        <source>Show this note only while %1 is in front with a file of the repository %2 (%3)</source>
        <translation>Diese Notiz nur zeigen, solange %1 mit einer Datei des Repositorys %2 (%3) vorn ist</translation>
    </message>
    <message>
        <source>Show this note only while an editor is in front with a file of the repository %1 (%2)</source>
        <translation>Diese Notiz nur zeigen, solange ein Editor mit einer Datei des Repositorys %1 (%2) vorn ist</translation>
    </message>
    <message>
        <source>Or pin it to the repository %1 (%2)</source>
        <translation>Oder sie an das Repository %1 (%2) heften</translation>
    </message>
    <message>
        <source>This desktop does not tell which app is in front: pinned notes cannot follow one here</source>
        <translation>Dieser Desktop verrät nicht, welches Programm vorn ist: Angeheftete Notizen können hier keinem folgen</translation>
    </message>
    <message>
        <source>On this desktop only apps that run through XWayland can be seen</source>
        <translation>Auf diesem Desktop sind nur Programme zu sehen, die über XWayland laufen</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Pin to the repository %1</source>
        <translation>An das Repository %1 heften</translation>
    </message>
    <message>
        <source>Pin to %1 or the repository %2</source>
        <translation>An %1 oder das Repository %2 heften</translation>
    </message>
</context>
<context>
    <name>tarnwick::AshesOverlay</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Ashes</source>
        <translation>Asche</translation>
    </message>
    <message>
        <source>Burned notes</source>
        <translation>Verbrannte Notizen</translation>
    </message>
    <message>
        <source>Sweep all ashes</source>
        <translation>Alle Asche wegkehren</translation>
    </message>
    <message>
        <source>At midnight, uncrushed notes without a date turn to ash. Revive them anytime.</source>
        <translation>Um Mitternacht werden nicht zerknüllte Notizen ohne Datum zu Asche. Sie lassen sich jederzeit wiederbeleben.</translation>
    </message>
    <message>
        <source>No ashes yet.</source>
        <translation>Noch keine Asche.</translation>
    </message>
</context>
<context>
    <name>tarnwick::AshesRow</name>
    <message>
        <source>Revive</source>
        <translation>Wiederbeleben</translation>
    </message>
</context>
<context>
    <name>tarnwick::AshesStrip</name>
    <message>
        <source>%1 burned last night · Revive</source>
        <translation>%1 letzte Nacht verbrannt · Wiederbeleben</translation>
    </message>
</context>
<context>
    <name>tarnwick::BoardMenu</name>
    <message>
        <source>Obsidian</source>
        <translation>Obsidian</translation>
    </message>
    <message>
        <source>Corkboard</source>
        <translation>Korkwand</translation>
    </message>
    <message>
        <source>Drafting Table</source>
        <translation>Zeichentisch</translation>
    </message>
    <message>
        <source>Acrylic</source>
        <translation>Acryl</translation>
    </message>
    <message>
        <source>Surface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Ashes</source>
        <translation>Asche</translation>
    </message>
</context>
<context>
    <name>tarnwick::BoardQueries</name>
    <message>
        <source>%1m</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1h %2m</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 burns in %2</source>
        <translation>%1 verbrennt in %2</translation>
    </message>
    <message>
        <source>%1 burn in %2</source>
        <translation>%1 verbrennen in %2</translation>
    </message>
</context>
<context>
    <name>tarnwick::BoardRail</name>
    <message>
        <source>Add Board</source>
        <translation>Brett hinzufügen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>Stats</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Neue Notiz</translation>
    </message>
    <message>
        <source>Name of the new board</source>
        <translation>Name des neuen Bretts</translation>
    </message>
    <message>
        <source>Board name</source>
        <translation>Name des Bretts</translation>
    </message>
</context>
<context>
    <name>tarnwick::BoardTabs</name>
    <message>
        <source>Boards</source>
        <translation>Bretter</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fokus</translation>
    </message>
</context>
<context>
    <name>tarnwick::BurnCountdownLabel</name>
    <message>
        <source>Uncrushed notes without a due date turn to ash at midnight.</source>
        <translation>Nicht zerknüllte Notizen ohne Fälligkeit werden um Mitternacht zu Asche.</translation>
    </message>
</context>
<context>
    <name>tarnwick::CardParts</name>
    <message>
        <source>No tag</source>
        <translation>Keine Marke</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
</context>
<context>
    <name>tarnwick::CardRules</name>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Morgen</translation>
    </message>
</context>
<context>
    <name>tarnwick::ColorSwatches</name>
    <message>
        <source>Paper colour</source>
        <translation>Papierfarbe</translation>
    </message>
</context>
<context>
    <name>tarnwick::CommandLine</name>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>%1 is one word too many</source>
        <translation>%1 ist ein Wort zu viel</translation>
    </message>
    <message>
        <source>unknown option %1 for %2</source>
        <translation>unbekannte Option %1 für %2</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 nimmt keinen Wert</translation>
    </message>
    <message>
        <source>%1 needs %2</source>
        <translation>%1 braucht %2</translation>
    </message>
    <message>
        <source>%1 is one word too many for %2</source>
        <translation>%1 ist ein Wort zu viel für %2</translation>
    </message>
    <message>
        <source>revive needs ID or --all</source>
        <translation>revive braucht ID oder --all</translation>
    </message>
    <message>
        <source>revive takes ID or --all, not both</source>
        <translation>revive nimmt ID oder --all, nicht beides</translation>
    </message>
    <message>
        <source>sweep deletes all ashes for good and needs --yes</source>
        <translation>sweep löscht alle Asche endgültig und braucht --yes</translation>
    </message>
    <message>
        <source>a word holds a NUL byte</source>
        <translation>ein Wort enthält ein NUL-Byte</translation>
    </message>
    <message>
        <source>unknown verb %1</source>
        <translation>unbekanntes Verb %1</translation>
    </message>
    <message>
        <source>%1 contradicts %2</source>
        <translation>%1 widerspricht %2</translation>
    </message>
    <message>
        <source>the board it belongs to</source>
        <translation>das Brett, zu dem sie gehört</translation>
    </message>
    <message>
        <source>paper colour, six hexadecimal digits</source>
        <translation>Papierfarbe, sechs hexadezimale Ziffern</translation>
    </message>
    <message>
        <source>YYYY-MM-DD, YYYY-MM-DDTHH:MM[:SS], today or tomorrow</source>
        <translation>JJJJ-MM-TT, JJJJ-MM-TTTHH:MM[:SS], today oder tomorrow</translation>
    </message>
    <message>
        <source>show it only while this application is in front</source>
        <translation>nur zeigen, solange dieses Programm vorn ist</translation>
    </message>
    <message>
        <source>show it only while this repository is worked on</source>
        <translation>nur zeigen, solange an diesem Repository gearbeitet wird</translation>
    </message>
    <message>
        <source>hide it from screen sharing, screenshots and recordings</source>
        <translation>vor geteilten Bildschirmen, Bildschirmfotos und Aufnahmen verbergen</translation>
    </message>
    <message>
        <source>put it onto the desktop (only while Tarnwick runs)</source>
        <translation>auf den Schreibtisch legen (nur solange Tarnwick läuft)</translation>
    </message>
    <message>
        <source>leave it on the board</source>
        <translation>auf dem Brett lassen</translation>
    </message>
    <message>
        <source>the new text</source>
        <translation>der neue Text</translation>
    </message>
    <message>
        <source>no due date</source>
        <translation>keine Fälligkeit</translation>
    </message>
    <message>
        <source>pinned to no application</source>
        <translation>an kein Programm geheftet</translation>
    </message>
    <message>
        <source>pinned to no repository</source>
        <translation>an kein Repository geheftet</translation>
    </message>
    <message>
        <source>not private</source>
        <translation>nicht privat</translation>
    </message>
    <message>
        <source>only this board</source>
        <translation>nur dieses Brett</translation>
    </message>
    <message>
        <source>only notes whose text contains this</source>
        <translation>nur Notizen, deren Text dies enthält</translation>
    </message>
    <message>
        <source>only notes with this tag</source>
        <translation>nur Notizen mit dieser Marke</translation>
    </message>
    <message>
        <source>as JSON</source>
        <translation>als JSON</translation>
    </message>
    <message>
        <source>show or hide the board</source>
        <translation>das Brett zeigen oder verbergen</translation>
    </message>
    <message>
        <source>show the board</source>
        <translation>das Brett zeigen</translation>
    </message>
    <message>
        <source>write a new note on the board</source>
        <translation>auf dem Brett eine neue Notiz schreiben</translation>
    </message>
    <message>
        <source>end Tarnwick</source>
        <translation>Tarnwick beenden</translation>
    </message>
    <message>
        <source>make a note; - reads its text from standard input</source>
        <translation>eine Notiz anlegen; - liest ihren Text von der Standardeingabe</translation>
    </message>
    <message>
        <source>change a note</source>
        <translation>eine Notiz ändern</translation>
    </message>
    <message>
        <source>list notes</source>
        <translation>Notizen auflisten</translation>
    </message>
    <message>
        <source>show one note, whole</source>
        <translation>eine Notiz ganz zeigen</translation>
    </message>
    <message>
        <source>finish a note</source>
        <translation>eine Notiz zerknüllen</translation>
    </message>
    <message>
        <source>take the last crush back</source>
        <translation>das letzte Zerknüllen zurücknehmen</translation>
    </message>
    <message>
        <source>toggle the checkbox on a line, counted from 0</source>
        <translation>das Kästchen einer Zeile umschalten, gezählt ab 0</translation>
    </message>
    <message>
        <source>bring burned notes back to the board</source>
        <translation>verbrannte Notizen aufs Brett zurückholen</translation>
    </message>
    <message>
        <source>all burned notes</source>
        <translation>alle verbrannten Notizen</translation>
    </message>
    <message>
        <source>delete all burned notes for good</source>
        <translation>alle verbrannten Notizen endgültig löschen</translation>
    </message>
    <message>
        <source>needed: it cannot be undone</source>
        <translation>nötig: es lässt sich nicht zurücknehmen</translation>
    </message>
    <message>
        <source>put a note onto the desktop</source>
        <translation>eine Notiz auf den Schreibtisch legen</translation>
    </message>
    <message>
        <source>put a note back on the board</source>
        <translation>eine Notiz aufs Brett zurücklegen</translation>
    </message>
    <message>
        <source>write every note to standard output or a file</source>
        <translation>alle Notizen auf die Standardausgabe oder in eine Datei schreiben</translation>
    </message>
    <message>
        <source>the file to write</source>
        <translation>die Datei, die geschrieben wird</translation>
    </message>
    <message>
        <source>take in an export, or the notes of another program</source>
        <translation>einen Export oder die Notizen eines anderen Programms übernehmen</translation>
    </message>
    <message>
        <source>only tell what would be imported</source>
        <translation>nur sagen, was übernommen würde</translation>
    </message>
    <message>
        <source>print all settings, print one, or set one</source>
        <translation>alle Einstellungen oder eine ausgeben, oder eine setzen</translation>
    </message>
    <message>
        <source>tell what runs now</source>
        <translation>sagen, was gerade läuft</translation>
    </message>
    <message>
        <source>Usage: tarnwick [VERB ...]</source>
        <translation>Aufruf: tarnwick [VERB ...]</translation>
    </message>
    <message>
        <source>start; when it runs already, show the board</source>
        <translation>starten; läuft es schon, das Brett zeigen</translation>
    </message>
    <message>
        <source>start without showing anything</source>
        <translation>starten, ohne etwas zu zeigen</translation>
    </message>
    <message>
        <source>start, and show what would be imported from the files</source>
        <translation>starten und zeigen, was aus den Dateien übernommen würde</translation>
    </message>
    <message>
        <source>print the version</source>
        <translation>die Version ausgeben</translation>
    </message>
    <message>
        <source>print this help</source>
        <translation>diese Hilfe ausgeben</translation>
    </message>
    <message>
        <source>&quot;tarnwick VERB --help&quot; tells of one verb.</source>
        <translation>„tarnwick VERB --help“ erklärt ein Verb.</translation>
    </message>
    <message>
        <source>Usage: tarnwick %1</source>
        <translation>Aufruf: tarnwick %1</translation>
    </message>
    <message>
        <source>[OPTIONS]</source>
        <translation>[OPTIONEN]</translation>
    </message>
</context>
<context>
    <name>tarnwick::CommandRunner</name>
    <message>
        <source>unknown key %1</source>
        <translation>unbekannter Schlüssel %1</translation>
    </message>
    <message>
        <source>not running</source>
        <translation>läuft nicht</translation>
    </message>
    <message>
        <source>there is nothing to undo</source>
        <translation>es gibt nichts zurückzunehmen</translation>
    </message>
    <message>
        <source>%1 is inside no repository</source>
        <translation>%1 liegt in keinem Repository</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>standard input is not valid UTF-8 text</source>
        <translation>die Standardeingabe ist kein gültiger UTF-8-Text</translation>
    </message>
    <message>
        <source>%1 is no value for %2</source>
        <translation>%1 ist kein Wert für %2</translation>
    </message>
    <message>
        <source>%1 is no line number</source>
        <translation>%1 ist keine Zeilennummer</translation>
    </message>
    <message>
        <source>the value of %1 is blank</source>
        <translation>der Wert von %1 ist leer</translation>
    </message>
    <message>
        <source>the note %1 is burned</source>
        <translation>die Notiz %1 ist verbrannt</translation>
    </message>
    <message>
        <source>the note %1 is finished</source>
        <translation>die Notiz %1 ist erledigt</translation>
    </message>
    <message>
        <source>TEXT is blank</source>
        <translation>TEXT ist leer</translation>
    </message>
    <message>
        <source>--tear: not running</source>
        <translation>--tear: läuft nicht</translation>
    </message>
    <message>
        <source>the note %1 has no text</source>
        <translation>die Notiz %1 hat keinen Text</translation>
    </message>
    <message>
        <source>the note has no line %1</source>
        <translation>die Notiz hat keine Zeile %1</translation>
    </message>
    <message>
        <source>line %1 has no checkbox</source>
        <translation>Zeile %1 hat kein Kästchen</translation>
    </message>
    <message>
        <source>the note %1 is not burned</source>
        <translation>die Notiz %1 ist nicht verbrannt</translation>
    </message>
    <message>
        <source>the store is in use</source>
        <translation>der Speicher wird gerade benutzt</translation>
    </message>
</context>
<context>
    <name>tarnwick::ContentView</name>
    <message>
        <source>No notes match.</source>
        <translation>Keine Notiz passt.</translation>
    </message>
    <message>
        <source>Board</source>
        <translation>Brett</translation>
    </message>
</context>
<context>
    <name>tarnwick::CrushTargetField</name>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Let Tarnwick find the Trash</source>
        <translation>Tarnwick den Papierkorb finden lassen</translation>
    </message>
    <message>
        <source>Pick…</source>
        <translation>Auswählen…</translation>
    </message>
    <message>
        <source>Pick where crushed notes land</source>
        <translation>Auswählen, wo zerknüllte Notizen landen</translation>
    </message>
</context>
<context>
    <name>tarnwick::CrushTargetPicker</name>
    <message>
        <source>Click where crushed notes should land. Escape leaves it as it is.</source>
        <translation>Klicken, wo zerknüllte Notizen landen sollen. Escape lässt es, wie es ist.</translation>
    </message>
</context>
<context>
    <name>tarnwick::DateBlock</name>
    <message>
        <source>Previous month</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Nächster Monat</translation>
    </message>
    <message>
        <source>Clear due date</source>
        <translation>Fälligkeit entfernen</translation>
    </message>
    <message>
        <source>Due Date</source>
        <translation>Fälligkeit</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
</context>
<context>
    <name>tarnwick::DayGrid</name>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
</context>
<context>
    <name>tarnwick::DisplayModeSegment</name>
    <message>
        <source>Torn-off notes</source>
        <translation>Abgerissene Notizen</translation>
    </message>
</context>
<context>
    <name>tarnwick::FloatingPanel</name>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
</context>
<context>
    <name>tarnwick::GeneralPane</name>
    <message>
        <source>Morning plan nudge</source>
        <translation>Morgendlicher Anstoß zum Planen</translation>
    </message>
    <message>
        <source>Once a day the board drops from the menu bar asking for today&apos;s plan.</source>
        <translation>Einmal am Tag fällt das Brett aus der Leiste und fragt nach dem Plan für heute.</translation>
    </message>
    <message>
        <source>Daily Burn</source>
        <translation>Tägliches Verbrennen</translation>
    </message>
    <message>
        <source>At midnight, uncrushed notes without a date turn to ash. Revive them anytime.</source>
        <translation>Um Mitternacht werden nicht zerknüllte Notizen ohne Datum zu Asche. Sie lassen sich jederzeit wiederbeleben.</translation>
    </message>
    <message>
        <source>Open the board</source>
        <translation>Brett öffnen</translation>
    </message>
    <message>
        <source>Browsers use this for Reopen Tab — the menu bar icon always works.</source>
        <translation>Browser öffnen damit geschlossene Tabs wieder – das Symbol in der Leiste geht immer.</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Beim Anmelden starten</translation>
    </message>
    <message>
        <source>Where crushed notes land</source>
        <translation>Wo zerknüllte Notizen landen</translation>
    </message>
    <message>
        <source>In the Trash of your panel or dock, or on a place that you pick.</source>
        <translation>Im Papierkorb der Leiste oder des Docks, oder auf einer selbst gewählten Stelle.</translation>
    </message>
</context>
<context>
    <name>tarnwick::HotKeyField</name>
    <message>
        <source>Change…</source>
        <translation>Ändern …</translation>
    </message>
    <message>
        <source>Change the shortcut, now %1</source>
        <translation>Tastenkürzel ändern, jetzt %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Press the new shortcut</source>
        <translation>Neues Tastenkürzel drücken</translation>
    </message>
    <message>
        <source>Hold ⌘, Ctrl or ⌥ with a letter, digit or F key.</source>
        <translation>⌘, Strg oder ⌥ mit Buchstabe, Ziffer oder F-Taste halten.</translation>
    </message>
    <message>
        <source>Press the new keys.
⌫ restores ⌘⇧T.</source>
        <translation>Neue Tasten drücken.
⌫ stellt ⌘⇧T wieder her.</translation>
    </message>
</context>
<context>
    <name>tarnwick::ImportWindow</name>
    <message>
        <source>Take back</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Taken back</source>
        <translation>Zurückgenommen</translation>
    </message>
    <message>
        <source>Nothing was taken back</source>
        <translation>Nichts wurde zurückgenommen</translation>
    </message>
    <message>
        <source>Gone from the board: %1. Changed since, and kept: %2.</source>
        <translation>Vom Brett verschwunden: %1. Seither geändert und behalten: %2.</translation>
    </message>
    <message>
        <source>Import notes</source>
        <translation>Notizen übernehmen</translation>
    </message>
    <message>
        <source>Where are your notes?</source>
        <translation>Wo sind deine Notizen?</translation>
    </message>
    <message>
        <source>They are only read there. You see what would come before anything is imported.</source>
        <translation>Dort werden sie nur gelesen. Du siehst, was käme, bevor etwas übernommen wird.</translation>
    </message>
    <message>
        <source>A file…</source>
        <translation>Eine Datei …</translation>
    </message>
    <message>
        <source>A folder…</source>
        <translation>Ein Ordner …</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation>%1 übernehmen</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Übernommen</translation>
    </message>
    <message>
        <source>Not everything was imported</source>
        <translation>Nicht alles wurde übernommen</translation>
    </message>
    <message>
        <source>New on the board: %1. Left as they were: %2.</source>
        <translation>Neu auf dem Brett: %1. Unverändert: %2.</translation>
    </message>
</context>
<context>
    <name>tarnwick::NoteEditPlate</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Write a thought…</source>
        <translation>Einen Gedanken notieren …</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Turn lines into checkboxes</source>
        <translation>Zeilen zu Kästchen machen</translation>
    </message>
    <message>
        <source>Couldn’t save. Try again.</source>
        <translation>Sichern ging nicht. Bitte noch einmal.</translation>
    </message>
</context>
<context>
    <name>tarnwick::NoteEditing</name>
    <message>
        <source>the note is gone</source>
        <translation>die Notiz ist fort</translation>
    </message>
</context>
<context>
    <name>tarnwick::NoteForm</name>
    <message>
        <source>Checklist</source>
        <translation>Checkliste</translation>
    </message>
    <message>
        <source>Write note on wall...</source>
        <translation>Notiz an die Wand schreiben ...</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Turn lines into tap-to-check boxes</source>
        <translation>Zeilen zu Kästchen zum Abhaken machen</translation>
    </message>
    <message>
        <source>Add item</source>
        <translation>Punkt hinzufügen</translation>
    </message>
    <message>
        <source>Due Date</source>
        <translation>Fälligkeit</translation>
    </message>
    <message>
        <source>Due Date: %1</source>
        <translation>Fälligkeit: %1</translation>
    </message>
    <message>
        <source>Repeat: %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>Stamp: %1</source>
        <translation>Stempel: %1</translation>
    </message>
    <message>
        <source>Board: %1</source>
        <translation>Brett: %1</translation>
    </message>
    <message>
        <source>Private</source>
        <translation>Privat</translation>
    </message>
    <message>
        <source>Private: hidden from screen sharing, screenshots and recordings</source>
        <translation>Privat: verborgen vor geteilten Bildschirmen, Bildschirmfotos und Aufnahmen</translation>
    </message>
    <message>
        <source>Make private: hide from screen sharing, screenshots and recordings</source>
        <translation>Privat machen: vor geteilten Bildschirmen, Bildschirmfotos und Aufnahmen verbergen</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Stamp</source>
        <translation>Stempel</translation>
    </message>
    <message>
        <source>Board</source>
        <translation>Brett</translation>
    </message>
    <message>
        <source>Show only with</source>
        <translation>Nur zeigen mit</translation>
    </message>
</context>
<context>
    <name>tarnwick::NoteOptions</name>
    <message>
        <source>%1 is no value for %2</source>
        <translation>%1 ist kein Wert für %2</translation>
    </message>
    <message>
        <source>the value of %1 is blank</source>
        <translation>der Wert von %1 ist leer</translation>
    </message>
    <message>
        <source>%1 is no colour of six hexadecimal digits</source>
        <translation>%1 ist keine Farbe aus sechs hexadezimalen Ziffern</translation>
    </message>
    <message>
        <source>%1 is no date</source>
        <translation>%1 ist kein Datum</translation>
    </message>
</context>
<context>
    <name>tarnwick::NoteText</name>
    <message>
        <source>finished</source>
        <translation>erledigt</translation>
    </message>
    <message>
        <source>burned</source>
        <translation>verbrannt</translation>
    </message>
    <message>
        <source>no note with the id %1</source>
        <translation>keine Notiz mit der Kennung %1</translation>
    </message>
    <message>
        <source>more than one note has an id that begins with %1</source>
        <translation>die Kennung mehrerer Notizen beginnt mit %1</translation>
    </message>
</context>
<context>
    <name>tarnwick::NoteWall</name>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Change colour</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Marke</translation>
    </message>
    <message>
        <source>Tear off</source>
        <translation>Abreißen</translation>
    </message>
    <message>
        <source>Crush</source>
        <translation>Zerknüllen</translation>
    </message>
    <message>
        <source>Daily three</source>
        <translation>Tagesdrei</translation>
    </message>
</context>
<context>
    <name>tarnwick::NotesPane</name>
    <message>
        <source>Omitted: captures leave your notes out.</source>
        <translation>Ausgelassen: Aufnahmen enthalten deine Notizen nicht.</translation>
    </message>
    <message>
        <source>Hidden while sharing is detected. Screenshots still show them.</source>
        <translation>Verborgen, solange das Teilen des Bildschirms erkannt wird. Bildschirmfotos zeigen sie weiterhin.</translation>
    </message>
    <message>
        <source>Not available here: captures will show your notes.</source>
        <translation>Hier nicht möglich: Aufnahmen zeigen deine Notizen.</translation>
    </message>
    <message>
        <source>App Notes</source>
        <translation>Programmnotizen</translation>
    </message>
    <message>
        <source>Tuck into a tab</source>
        <translation>Zum Reiter einklappen</translation>
    </message>
    <message>
        <source>Notes pinned to an app dock to its window as a small tab. Hover to open.</source>
        <translation>An ein Programm geheftete Notizen docken als kleiner Reiter an dessen Fenster. Darüberfahren öffnet sie.</translation>
    </message>
    <message>
        <source>Torn-off notes</source>
        <translation>Abgerissene Notizen</translation>
    </message>
    <message>
        <source>Bring back after sleep</source>
        <translation>Nach dem Ruhezustand zurückholen</translation>
    </message>
    <message>
        <source>Notes float back above your apps when the Mac wakes.</source>
        <translation>Notizen schweben wieder über den Programmen, wenn der Rechner aufwacht.</translation>
    </message>
    <message>
        <source>Remember torn notes</source>
        <translation>Abgerissene Notizen merken</translation>
    </message>
    <message>
        <source>They come back to their places at the next start.</source>
        <translation>Sie kehren beim nächsten Start an ihren Platz zurück.</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Immer im Vordergrund</translation>
    </message>
    <message>
        <source>Floats above all apps, including fullscreen</source>
        <translation>Schwebt über allen Programmen, auch im Vollbild</translation>
    </message>
    <message>
        <source>Ghost</source>
        <translation>Geist</translation>
    </message>
    <message>
        <source>See-through for you, invisible in screenshots and screen shares. Clicks pass through; hold ⌥ to grab.</source>
        <translation>Für dich durchscheinend, unsichtbar in Bildschirmfotos und geteilten Bildschirmen. Klicks gehen hindurch; mit ⌥ greifen.</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Schreibtisch</translation>
    </message>
    <message>
        <source>Sits on wallpaper, below other windows</source>
        <translation>Liegt auf dem Hintergrundbild, unter anderen Fenstern</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Privatsphäre</translation>
    </message>
    <message>
        <source>Hide all notes from screen sharing</source>
        <translation>Alle Notizen vor geteilten Bildschirmen verbergen</translation>
    </message>
    <message>
        <source>You still see them; Zoom, Meet, screenshots and recordings don&apos;t. Also in the menu bar menu.</source>
        <translation>Du siehst sie weiterhin; Zoom, Meet, Bildschirmfotos und Aufnahmen nicht. Auch im Menü der Leiste.</translation>
    </message>
    <message>
        <source>Private notes</source>
        <translation>Private Notizen</translation>
    </message>
    <message>
        <source>Tap the lock in a note&apos;s editor to hide just that note.</source>
        <translation>Das Schloss beim Bearbeiten einer Notiz verbirgt nur diese.</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>New note texture</source>
        <translation>Papier neuer Notizen</translation>
    </message>
    <message>
        <source>When you complete a note</source>
        <translation>Beim Erledigen einer Notiz</translation>
    </message>
    <message>
        <source>Crush into Trash</source>
        <translation>In den Papierkorb zerknüllen</translation>
    </message>
    <message>
        <source>Shred</source>
        <translation>Schreddern</translation>
    </message>
    <message>
        <source>Other notes</source>
        <translation>Andere Notizen</translation>
    </message>
    <message>
        <source>Import notes</source>
        <translation>Notizen übernehmen</translation>
    </message>
    <message>
        <source>From a file, a calendar, or another notes program.</source>
        <translation>Aus einer Datei, einem Kalender oder einem anderen Notizprogramm.</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Übernehmen …</translation>
    </message>
</context>
<context>
    <name>tarnwick::NotificationEngine</name>
    <message>
        <source>Due today</source>
        <translation>Heute fällig</translation>
    </message>
    <message>
        <source>Due in 15 minutes</source>
        <translation>In 15 Minuten fällig</translation>
    </message>
    <message>
        <source>Due now</source>
        <translation>Jetzt fällig</translation>
    </message>
    <message>
        <source>Deadline today</source>
        <translation>Heute ist Abgabe</translation>
    </message>
    <message>
        <source>Crush</source>
        <translation>Zerknüllen</translation>
    </message>
    <message>
        <source>Remind me in an hour</source>
        <translation>In einer Stunde erinnern</translation>
    </message>
</context>
<context>
    <name>tarnwick::PickerButton</name>
    <message>
        <source>%1: %2</source>
        <comment>name of a picker, chosen value</comment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>tarnwick::PlanNudge</name>
    <message>
        <source>LATE NIGHT</source>
        <translation>SPÄT NACHTS</translation>
    </message>
    <message>
        <source>Desk is clear</source>
        <translation>Der Tisch ist leer</translation>
    </message>
    <message>
        <source>Nothing to burn tonight. Sleep easy.</source>
        <translation>Heute Nacht verbrennt nichts. Schlaf gut.</translation>
    </message>
    <message>
        <source>%1 MORNING</source>
        <translation>%1MORGEN</translation>
    </message>
    <message>
        <source>What&apos;s today&apos;s plan?</source>
        <translation>Was ist der Plan für heute?</translation>
    </message>
    <message>
        <source>Stick the 3 things that make today a win.</source>
        <translation>Klebe die 3 Dinge an, die den Tag gelingen lassen.</translation>
    </message>
    <message>
        <source>Stick it before it slips.</source>
        <translation>Klebe es an, bevor es entgleitet.</translation>
    </message>
    <message>
        <source> Unfinished notes burn at midnight.</source>
        <translation> Unerledigte Notizen verbrennen um Mitternacht.</translation>
    </message>
    <message>
        <source>%1 AFTERNOON</source>
        <translation>%1NACHMITTAG</translation>
    </message>
    <message>
        <source>What still has to happen today?</source>
        <translation>Was muss heute noch geschehen?</translation>
    </message>
    <message>
        <source>%1 EVENING</source>
        <translation>%1ABEND</translation>
    </message>
    <message>
        <source>Anything left for today?</source>
        <translation>Ist heute noch etwas offen?</translation>
    </message>
    <message>
        <source>One last push, or plan tomorrow in the morning.</source>
        <translation>Noch ein letzter Schub, oder morgen früh neu planen.</translation>
    </message>
</context>
<context>
    <name>tarnwick::PlanSlot</name>
    <message>
        <source>Plan slot %1 of %2</source>
        <translation>Planfeld %1 von %2</translation>
    </message>
</context>
<context>
    <name>tarnwick::SearchField</name>
    <message>
        <source>Close search</source>
        <translation>Suche schließen</translation>
    </message>
    <message>
        <source>Search notes...</source>
        <translation>Notizen suchen ...</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>tarnwick::SettingsCommand</name>
    <message>
        <source>unknown key %1</source>
        <translation>unbekannter Schlüssel %1</translation>
    </message>
    <message>
        <source>%1 is no value for %2</source>
        <translation>%1 ist kein Wert für %2</translation>
    </message>
</context>
<context>
    <name>tarnwick::SettingsView</name>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Settings panes</source>
        <translation>Bereiche der Einstellungen</translation>
    </message>
</context>
<context>
    <name>tarnwick::SoundPane</name>
    <message>
        <source>Paper sounds</source>
        <translation>Papiergeräusche</translation>
    </message>
    <message>
        <source>Stick, tear and crush foley.</source>
        <translation>Geräusche beim Ankleben, Abreißen und Zerknüllen.</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorhören</translation>
    </message>
    <message>
        <source>Play %1</source>
        <comment>name of a sound</comment>
        <translation>%1 abspielen</translation>
    </message>
    <message>
        <source>Stick</source>
        <translation>Kleben</translation>
    </message>
    <message>
        <source>Tear</source>
        <translation>Reißen</translation>
    </message>
    <message>
        <source>Crush</source>
        <translation>Knüllen</translation>
    </message>
</context>
<context>
    <name>tarnwick::Spinner</name>
    <message>
        <source>Checking for updates</source>
        <translation>Es wird nach neuen Versionen gesehen</translation>
    </message>
</context>
<context>
    <name>tarnwick::StatsSlip</name>
    <message>
        <source>Close stats</source>
        <translation>Statistik schließen</translation>
    </message>
    <message>
        <source>Crush Momentum</source>
        <translation>Schwung</translation>
    </message>
    <message>
        <source>Crushed</source>
        <translation>Zerknüllt</translation>
    </message>
    <message>
        <source>Turned to Ashes</source>
        <translation>Zu Asche geworden</translation>
    </message>
    <message>
        <source>Active on Wall</source>
        <translation>Aktiv an der Wand</translation>
    </message>
    <message>
        <source>Crush notes to clear them. Leftovers burn at midnight.</source>
        <translation>Zerknülle Notizen, um sie loszuwerden. Was bleibt, verbrennt um Mitternacht.</translation>
    </message>
</context>
<context>
    <name>tarnwick::StatusBarController</name>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
    <message>
        <source>Tarnwick — ⌘⇧T</source>
        <translation>Tarnwick — ⌘⇧T</translation>
    </message>
    <message>
        <source>Open Board</source>
        <translation>Brett öffnen</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Neue Notiz</translation>
    </message>
    <message>
        <source>Hide Notes from Screen Sharing</source>
        <translation>Notizen vor geteilten Bildschirmen verbergen</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>Tarnwick beenden</translation>
    </message>
</context>
<context>
    <name>tarnwick::StatusReport</name>
    <message>
        <source>Tarnwick %1, process %2</source>
        <translation>Tarnwick %1, Prozess %2</translation>
    </message>
    <message>
        <source>board: shown</source>
        <translation>Brett: sichtbar</translation>
    </message>
    <message>
        <source>board: hidden</source>
        <translation>Brett: verborgen</translation>
    </message>
    <message>
        <source>notes on the desktop: %1</source>
        <translation>Notizen auf dem Schreibtisch: %1</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>verborgen</translation>
    </message>
    <message>
        <source>ghost</source>
        <translation>Geist</translation>
    </message>
    <message>
        <source>tucked</source>
        <translation>eingeklappt</translation>
    </message>
    <message>
        <source>docked</source>
        <translation>angedockt</translation>
    </message>
    <message>
        <source>not shared</source>
        <translation>nicht geteilt</translation>
    </message>
    <message>
        <source>in front: %1</source>
        <translation>vorn: %1</translation>
    </message>
    <message>
        <source>repository: %1</source>
        <translation>Repository: %1</translation>
    </message>
    <message>
        <source>reminders: %1</source>
        <translation>Erinnerungen: %1</translation>
    </message>
</context>
<context>
    <name>tarnwick::StoreAlert</name>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
    <message>
        <source>Your notes could not be opened.</source>
        <translation>Deine Notizen konnten nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The file was left as it is: %1</source>
        <translation>Die Datei blieb, wie sie ist: %1</translation>
    </message>
    <message>
        <source>Copies of earlier days are in %1</source>
        <translation>Kopien früherer Tage liegen in %1</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>Tarnwick beenden</translation>
    </message>
</context>
<context>
    <name>tarnwick::TagRow</name>
    <message>
        <source>Tags</source>
        <translation>Marken</translation>
    </message>
</context>
<context>
    <name>tarnwick::TaskNoteView</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Tear off</source>
        <translation>Abreißen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Edit Note</source>
        <translation>Notiz bearbeiten</translation>
    </message>
</context>
<context>
    <name>tarnwick::TaskStickyCard</name>
    <message>
        <source>due %1</source>
        <translation>fällig %1</translation>
    </message>
    <message>
        <source>overdue</source>
        <translation>überfällig</translation>
    </message>
    <message>
        <source>%1 of %2 done</source>
        <translation>%1 von %2 erledigt</translation>
    </message>
    <message>
        <source>private</source>
        <translation>privat</translation>
    </message>
    <message>
        <source>daily three</source>
        <translation>Tagesdrei</translation>
    </message>
    <message>
        <source>burns tonight</source>
        <translation>verbrennt heute Nacht</translation>
    </message>
    <message>
        <source>Crush note</source>
        <translation>Notiz zerknüllen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Change colour</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Add to daily three</source>
        <translation>Zur Tagesdrei hinzufügen</translation>
    </message>
    <message>
        <source>Tear off</source>
        <translation>Abreißen</translation>
    </message>
    <message>
        <source>repository %1</source>
        <translation>Repository %1</translation>
    </message>
</context>
<context>
    <name>tarnwick::ThemeChips</name>
    <message>
        <source>Paper theme</source>
        <translation>Papiersorte</translation>
    </message>
</context>
<context>
    <name>tarnwick::TornNotePanel</name>
    <message>
        <source>Tarnwick Note</source>
        <translation>Tarnwick-Notiz</translation>
    </message>
</context>
<context>
    <name>tarnwick::TornStickyNoteView</name>
    <message>
        <source>Crush note</source>
        <translation>Notiz zerknüllen</translation>
    </message>
    <message>
        <source>Put back on board</source>
        <translation>Zurück aufs Brett</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Change colour</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Add to daily three</source>
        <translation>Zur Tagesdrei hinzufügen</translation>
    </message>
    <message>
        <source>Private</source>
        <translation>Privat</translation>
    </message>
    <message>
        <source>%1, private</source>
        <translation>%1, privat</translation>
    </message>
    <message>
        <source>%1, done</source>
        <translation>%1, erledigt</translation>
    </message>
</context>
<context>
    <name>tarnwick::UndoToast</name>
    <message>
        <source>Crushed — ⌘Z to undo</source>
        <translation>Zerknüllt — ⌘Z nimmt es zurück</translation>
    </message>
    <message>
        <source>Restored</source>
        <translation>Zurückgeholt</translation>
    </message>
</context>
<context>
    <name>tarnwick::UpdateBanner</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Get %1</source>
        <translation>%1 holen</translation>
    </message>
    <message>
        <source>Tarnwick %1 is ready</source>
        <translation>Tarnwick %1 ist da</translation>
    </message>
</context>
<context>
    <name>tarnwick::UpdateControl</name>
    <message>
        <source>This build looks for no updates.</source>
        <translation>Diese Ausgabe sucht keine Aktualisierungen.</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>Jetzt nachsehen</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach server</source>
        <translation>Server nicht erreichbar</translation>
    </message>
    <message>
        <source>Get %1</source>
        <translation>%1 holen</translation>
    </message>
</context>
<context>
    <name>tarnwick::WelcomeView</name>
    <message>
        <source>Stick a thought, anywhere</source>
        <translation>Einen Gedanken ankleben, überall</translation>
    </message>
    <message>
        <source>Press this from any app to open your board. The Tarnwick icon in the menu bar works too.</source>
        <translation>Öffnet dein Brett aus jedem Programm. Das Symbol von Tarnwick in der Leiste geht auch.</translation>
    </message>
    <message>
        <source>Done? Crush it.</source>
        <translation>Fertig? Zerknüllen.</translation>
    </message>
    <message>
        <source>Click the circle on a note and it crumples into your Dock&apos;s Trash. Keyboard: arrow keys to pick a note, ⌘⌫ to crush. ⌘Z undoes.</source>
        <translation>Ein Klick auf den Kreis, und die Notiz fliegt zerknüllt in den Papierkorb. Tastatur: Pfeiltasten wählen, ⌘⌫ zerknüllt, ⌘Z nimmt es zurück.</translation>
    </message>
    <message>
        <source>Let notes find the Trash</source>
        <translation>Notizen treffen den Papierkorb</translation>
    </message>
    <message>
        <source>Accessibility lets Tarnwick see where your Dock&apos;s Trash is, so the paper ball lands inside it. Nothing is read from your apps or sent anywhere.</source>
        <translation>Über die Barrierefreiheit sieht Tarnwick, wo der Papierkorb liegt, damit der Papierball darin landet. Nichts wird aus Programmen gelesen oder gesendet.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Barrierefreiheit öffnen</translation>
    </message>
    <message>
        <source>Tarnwick</source>
        <translation>Tarnwick</translation>
    </message>
    <message>
        <source>Accessibility is on</source>
        <translation>Barrierefreiheit ist an</translation>
    </message>
    <message>
        <source>Start sticking</source>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Not available on this desktop: the ball aims by estimate.</source>
        <translation>Auf dieser Arbeitsumgebung nicht möglich: der Ball zielt nach Schätzung.</translation>
    </message>
</context>
</TS>
