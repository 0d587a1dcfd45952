#include "login/login_values.h"

char* hostname;
unsigned char hostaddress[4];
passwd* pwd;
const char* userName = "";
const char* ttyName = "";
const char* ttyId = "";
pid_t loginPid;
