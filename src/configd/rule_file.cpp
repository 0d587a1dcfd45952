#include "configd/rule_file.h"

int RuleFile::write(const std::string& rules) const
{
    if (file_.empty()) return 0;
    const std::string fresh = file_ + ".new";
    int file = -1;
    if (const int error = storage_.create(fresh, file)) return error;
    int error = storage_.write(file, rules);
    const int closed = storage_.close(file);
    if (error == 0) error = closed;
    if (error == 0) error = storage_.rename(fresh, file_);
    if (error != 0) storage_.unlink(fresh);
    return error;
}
