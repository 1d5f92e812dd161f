#pragma once

/// Keeps the library that talks to an X server from saying on standard error that the server is
/// gone ("XIO: fatal IO error ..."): the process exits all the same, and what it says first is its
/// own (see endAsAnErrorIfScreenIsLost).
void dropWordsOfALostXServer();
