#pragma once

/// Whether somebody owns a selection of the X server, by which tray, compositor and their like say that they are
/// there (Inter-Client Communication Conventions, section 2.8). False without an X server. Asks the server: main
/// thread only, and not for each picture.
bool isX11SelectionOwned(char const* name);
