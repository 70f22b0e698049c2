<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
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
</context>
<context>
    <name>Application</name>
    <message>
        <source>This system does not support opengl. Exiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This system does not support a system tray.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ombravision</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No open channel has a stream buffer.</source>
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
</context>
<context>
    <name>FileChannels</name>
    <message>
        <source>Media files (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv *.mp3 *.m4a *.aac *.flac *.wav);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Video File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Video Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Video Files</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video Post Processing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Video Post Processing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0.25x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0.5x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0.75x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1.25x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1.5x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1.75x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Half Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Normal Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Touch Inside</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Touch Outside</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Carousel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run at Startup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Increase Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decrease Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Increase Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decrease Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seek Forwards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seek backwards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tabs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Chat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skin Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Video File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Video Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add Video Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Video Stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Latte Stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add Latte Stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add/Remove channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sign In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sign Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Create Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Ombravision</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tutorial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Support</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Feedback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Buy Ombravision Pro</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Invite Friend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send Support Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Show Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Window</source>
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
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ombravision has detected that your system does not have a proper opengl graphics driver installed.&lt;br&gt;This will cause Ombravision to run slowly especially in fullscreen mode.&lt;br&gt;Please install the driver of the maker of your graphics card, or the package that your distribution has for it, and start Ombravision again.</source>
        <translation type="unfinished"></translation>
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
    <name>Splitter</name>
    <message>
        <source>Picture and tabs</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabWidget</name>
    <message>
        <source>Tabs</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Minimise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restore</source>
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
</context>
<context>
    <name>Window</name>
    <message>
        <source>Stream Buffer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ombravision is still there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click on its icon to go on watching. Exit in its menu ends the program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The screenshot could not be saved in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screenshot saved as %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are signed in as %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signing in ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Your account shows %n channel(s) at once.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (muted)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (volume %2 %)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>Take Screenshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Playback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Draw Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Effects</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n more in the list of channels</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>No channels</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowZoom</name>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
