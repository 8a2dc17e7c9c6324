// The program that the precompiled headers of all tests belong to; nothing runs it.
int main()
{
    return 0;
}
