/// The command-line tool. Its verbs join the table as the library grows.
int main()
{
    return 0;
}
