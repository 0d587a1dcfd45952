// in work
