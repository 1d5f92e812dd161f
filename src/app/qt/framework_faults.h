#pragma once

/// The framework, and the libraries below it, have ways of their own to end a process or to wait
/// for ever when they are in trouble, mostly for want of memory. From here on their troubles end as
/// every error does, with a message on standard error and exit code 3: a fatal remark of the
/// framework's, a thread that it cannot start (it would wait for its work all the same), and a
/// signal that would kill the process. There is no box, which would need what has just failed.
void endAsAnErrorOnFrameworkFaults();

/// The framework's other remarks, in English, are kept from then on, as many as a small store
/// holds: in a run that succeeds nobody needs them. Those of a run that fails are written to
/// standard error by this, to be called behind the message.
void writeKeptRemarks();

/// Keeps none any more, nor those that were kept.
void dropFrameworkRemarks();
