#include "commands/interface_list.h"

#include <cstdio>
#include <cstring>

#include "service/client.h"
#include "service/fields/interfaces.h"

namespace {
int keep_names(const Exchange& list, InterfaceNames& names)
{
    for (unsigned char* entry : list.table(interface_entry::kSize)) {
        if (names.count == kMaxInterfaces) break;
        std::snprintf(names.name[names.count++], kInterfaceNameSize, "%s", interface_entry::name.get(entry));
    }
    return names.count;
}
}  // namespace

bool InterfaceNames::has(const char* wanted) const
{
    for (int i = 0; i < count; ++i)
        if (std::strcmp(name[i], wanted) == 0) return true;
    return false;
}

int CliGetIfNames(InterfaceNames& names)
{
    names = {};
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadPort);
    if (!list.ok()) {
        CliPrintServiceError(list.outcome().reason(), kSystemGroup);
        return 0;
    }
    return keep_names(list, names);
}

int CliQueryIfNumber()
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadInterfaces);
    return list.ok() ? interface_record::count.get(usrComParam) : 0;
}

int CliGetIfList(InterfaceNames& names)
{
    names = {};
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadInterfaces);
    return list.ok() ? keep_names(list, names) : 0;
}
