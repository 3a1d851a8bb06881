#pragma once

/// What a plug-in of a host offers: it loads the file as a source of a new container, asks it for
/// its services, and lets everything go. The number of services; minus the number of messages that
/// the file was refused with.
extern "C" int ServicesOf(const char* file);
