// Who logs in where: the values that the steps of the start-up find out for the later ones.
#pragma once

#include <pwd.h>
#include <sys/types.h>

extern char* hostname;                // the remote host that -h named, or null; printable characters only
extern unsigned char hostaddress[4];  // its IPv4 address; first byte 0: not known
extern passwd* pwd;                   // the user's entry in the password database, or one made up for it
extern const char* userName;          // "root" once the user look-up has started
extern const char* ttyName;           // the terminal without "/dev/"
extern const char* ttyId;             // its short form for utmp
extern pid_t loginPid;
