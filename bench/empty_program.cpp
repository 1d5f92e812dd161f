// What starting and ending a process costs, and nothing else.
int main() {}
