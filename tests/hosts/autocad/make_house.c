/* Writes house.dwg, a drawing of release 2000, with LibreDWG's own library:
 *
 *   cc make_house.c -lredwg -o make_house && ./make_house house.dwg
 *
 * The model has a square with a text in it, and a text on a layer that is switched off; the sheet has a text. */
#include <dwg.h>
#include <dwg_api.h>

static Dwg_Entity_TEXT* write(Dwg_Object_BLOCK_HEADER* block, const char* words, double x, double y) {
    const dwg_point_3d place = {x, y, 0};
    Dwg_Entity_TEXT* text = dwg_add_TEXT(block, words, &place, 5);
    text->width_factor = 1;
    text->dataflags = 0;
    return text;
}

static void draw_line(Dwg_Object_BLOCK_HEADER* block, double x1, double y1, double x2, double y2) {
    const dwg_point_3d start = {x1, y1, 0};
    const dwg_point_3d end = {x2, y2, 0};
    dwg_add_LINE(block, &start, &end);
}

int main(int count, char** words) {
    if (count != 2) return 2;
    Dwg_Data* drawing = dwg_new_Document(R_2000, 0, 0);
    Dwg_Object_BLOCK_HEADER* model = dwg_model_space_object(drawing)->tio.object->tio.BLOCK_HEADER;
    Dwg_Object_BLOCK_HEADER* sheet = dwg_paper_space_object(drawing)->tio.object->tio.BLOCK_HEADER;

    draw_line(model, 0, 0, 100, 0);
    draw_line(model, 100, 0, 100, 60);
    draw_line(model, 100, 60, 0, 60);
    draw_line(model, 0, 60, 0, 0);
    Dwg_Entity_TEXT* shown = write(model, "the model", 10, 25);
    Dwg_Entity_TEXT* unseen = write(model, "nobody sees this", 10, 45);
    write(sheet, "the sheet", 20, 20);

    // These bits of a layer are written as they are: 16 for one that is plotted, 2 for one that is off.
    dwg_ref_object(drawing, shown->parent->layer)->tio.object->tio.LAYER->flag0 = 16;
    dwg_add_LAYER(drawing, "hidden")->flag0 = 16 + 2;
    unseen->parent->layer = dwg_find_tablehandle(drawing, "hidden", "LAYER");

    return dwg_write_file(words[1], drawing) >= DWG_ERR_CRITICAL;
}
