// Linked with every object of the core: what the core needs beyond the standard library is missed
// here by the linker.
int main() { return 0; }
